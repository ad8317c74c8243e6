#pragma once

#include "runtime/Desktop.h"
#include "toolkit/windows/DialogForm.h"
#include "tsms-start/StartServices.h"

#include <QHash>

#include <functional>
#include <optional>

namespace tsms {

class fpSpread;

/// The window of tsms-start: the connections of this user, and what is done with one. A start closes it.
class StartWindow : public DialogForm
{
    Q_OBJECT

public:
    explicit StartWindow(StartServices& services);

protected:
    /// What changes a file is seen to its end.
    bool QueryUnload() override { return !IsBusy(); }
    void OnButton(int index) override;

private:
    enum Command : int { New, Change, Remove, Test, Prepare };

    void BuildList();
    void BuildCommands();
    void ShowList();
    void Do(Command command);
    /// Does it with the connection that is selected, or says that there is none.
    void WithSelected(void (StartWindow::*act)(const SavedConnection&));

    void Start(const SavedConnection& connection);
    void Edit(const SavedConnection& connection);
    void RemoveConnection(const SavedConnection& connection);
    void TestConnection(const SavedConnection& connection);
    void PrepareConnection(const SavedConnection& connection);
    void PrepareFile(const QString& file);
    void AddLogs(const QString& file);
    void Aside(const std::function<void()>& act);
    void Tell(const QString& words, MsgBoxStyle style);

    /// Typed in this run, kept, or asked for now; nothing when the user gives none.
    std::optional<QString> PasswordFor(const SavedConnection& connection);
    std::optional<QString> AskPassword(const SavedConnection& connection, const QString& note);

    StartServices& services_;
    fpSpread* list_ = nullptr;
    QHash<QString, QString> passwords_; ///< of this run, by the id of their connection
};

} // namespace tsms
