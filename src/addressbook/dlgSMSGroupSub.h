#pragma once

#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"

#include <array>
#include <functional>

class QGridLayout;

namespace tsms {

class ComboBox;
class Recordset;
class TextBox;
struct MemberFields;
struct Services;

/// The dialog that adds a person to the address book or changes one. Its construction reads the groups. The
/// opener sets AddMode and, for a change, the titles and GetGroupSubData.
class dlgSMSGroupSub : public DialogForm
{
    Q_OBJECT

public:
    /// `reload` shows the members anew, once the dialog has stored one and is unloaded.
    dlgSMSGroupSub(Services& services, std::function<void()> reload, QWidget* owner = nullptr);

    bool AddMode = false;

    /// Loads one member into the fields. Opens and closes the database itself and reports its failures, also
    /// that there is no such member any more.
    void GetGroupSubData(const QString& code);

protected:
    void OnButton(int index) override;

private:
    void BuildFields();
    void BuildBox(int index, const QString& caption, QGridLayout& rows);
    void LoadGroups();
    void ShowMember(const Recordset& member);

    void BoxChange(int index);
    void BoxKeyPress(int index, char16_t& key);

    void Save();
    bool FieldsPass();
    MemberFields Typed() const;
    bool IsTaken();
    void TellTaken();
    void TellSaved();

    Services& services_;
    TextHelper textHelper_;
    std::function<void()> reload_;
    ComboBox* group_ = nullptr;        // CbGroup
    std::array<Label*, 2> captions_{}; // lblTitle
    std::array<TextBox*, 2> boxes_{};  // txtGroupSub
};

} // namespace tsms
