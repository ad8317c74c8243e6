#pragma once

#include "e2e/PictureDesk.h"
#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "shell/frmSMSMain.h"
#include "store/DBConnect.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/gateway/TestGateway.h"
#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"

#include <QDir>
#include <QStringList>

#include <functional>
#include <memory>

namespace tsms::test {

/// Shows every window and every message box of the program, in the states that a person sees. The windows are
/// the real ones, worked through their controls; the boxes come from the real operations. The clock stands
/// still and the database is the one for demonstrations, so it is the same each time. What does not come up
/// as it should fails the test that runs.
class PictureBook
{
public:
    /// `take` gets each window and box when it has the keyboard and has painted itself, with a name of its
    /// own. `home` is the program's folder, which some windows show; it and the one above it are made and
    /// removed.
    PictureBook(PictureDesk::TakePicture take, const QString& home);
    ~PictureBook();

    /// Works through the whole program.
    void TurnAllPages();

private:
    void FailedStarts();
    void Pages();
    void History();
    void Cancellation();
    void Details();
    void ComposeCards();
    void EditorCards();
    void SettingsWork();
    void ChargeWork();
    void AddressBook();
    void Import();
    void PreflightBoxes();
    void AccountBoxes();
    void Dispatch();
    void DispatchFailures();
    void DatabaseBoxes();
    void WindowBoxes();

    QString LaunchLine() const { return database_.Path() + u"■(embedded)■0■sa■secret■7■본사"_q; }
    void FillDatabase();
    void FillTemplates();
    void Start(const QString& command);
    void End();

    /// Takes a window when it has the keyboard and has painted itself.
    void Take(QWidget& window, const QString& name);

    template <class W> W& On(QWidget& window, const QString& name)
    {
        W* found = dynamic_cast<W*>(window.findChild<QWidget*>(name));
        if (!found)
            qFatal("no control %s", qPrintable(name));
        return *found;
    }
    template <class W> W& The(const QString& name) { return On<W>(*form_, name); }
    void Click(const QString& name);
    fpSpread& SentList() { return The<fpSpread>(u"fpSpreadSendList"_q); }
    fpSpread& Grid() { return The<fpSpread>(u"fpSpread"_q); }
    void Write(const QString& message);
    void List(const QList<QStringList>& recipients);
    void SetSenderNumber(const QString& number);
    void FillComposePage();
    void EmptyComposePage();
    void Refuse(const QString& box);
    void Send(std::function<void(QWidget& dialog)> act = {});
    void MemberView(QWidget& book);
    void GroupView(QWidget& book);
    void EmptyBook(QWidget& book);
    void InBookDialog(const QString& form, const std::function<void()>& open, const QString& name,
                      const std::function<void(QWidget&)>& act = {});
    void RefuseReservation(QWidget& dialog, const QString& box);
    void Ask(QWidget& dialog, const QString& box);
    void AwaitFailures(int count);
    void SearchHistory(const QString& first, const QString& last, int status);
    void SetPeriod(const QString& first, const QString& last);
    void ClickHistoryCell(int column, int row);
    void Reserve();
    void Withdraw(int ticked, const QString& question, std::function<void(QWidget& dialog)> act);
    void OpenDetail(int row, std::function<void(QWidget& dialog)> act);
    void SetAccount(const QString& assignment) { database_.Execute(u"UPDATE SMSSetup SET "_q + assignment); }

    PictureDesk::TakePicture take_;
    QDir home_;
    FixedClock clock_;
    TestDatabase database_;
    FailingConnections connections_;
    TestGateway gateway_;
    PictureDesk desk_;
    Session session_;
    DBConnect db_;
    ModSMS sms_;
    Services services_;
    std::unique_ptr<frmSMSMain> form_;
};

} // namespace tsms::test
