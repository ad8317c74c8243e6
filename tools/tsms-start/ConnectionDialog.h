#pragma once

#include "toolkit/fields/FieldRows.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"
#include "tsms-start/StartServices.h"

#include <QList>

namespace tsms {

class CheckBox;
class RadioButton;

/// Sets up a connection, a new one or one that is there. A database file that is not there is made at the
/// end, if the user wants it.
class ConnectionDialog : public DialogForm
{
    Q_OBJECT

public:
    /// A `connection` without an id is a new one.
    ConnectionDialog(StartServices& services, SavedConnection connection, QWidget* owner);

    /// Whether it stands in the list now, as the chosen one.
    bool Saved() const { return saved_; }

    /// As typed; empty when nothing was.
    QString Password() const;

protected:
    void OnButton(int index) override;

private:
    void BuildFields();
    void BuildKinds();
    void BuildFile();
    void BuildServer();
    void BuildCaller();
    void AddBox(int index, const QString& caption, int limit);
    void Show();
    void ShowKind();
    SavedConnection Typed() const;
    QString ProposedFile() const;
    void PickFile();

    void Save();
    bool HasFile(const QString& file);
    bool MakeFile(const QString& file);
    void Keep(SavedConnection connection);
    void KeyPress(int index, char16_t& key);

    StartServices& services_;
    TextHelper textHelper_;
    FieldRows fields_;
    SavedConnection connection_;
    RadioButton* fileKind_ = nullptr;
    RadioButton* serverKind_ = nullptr;
    CheckBox* demo_ = nullptr;
    CheckBox* keepsPassword_ = nullptr;
    QList<QWidget*> fileWidgets_;
    QList<QWidget*> serverWidgets_;
    bool saved_ = false;
};

} // namespace tsms
