#pragma once

#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "shell/frmSMSMain.h"
#include "store/DBConnect.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/gateway/TestGateway.h"
#include "support/program/Hands.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "toolkit/fields/TextField.h"
#include "toolkit/grid/fpSpread.h"

#include <QTemporaryDir>

#include <memory>

namespace tsms {
class Label;
class PushButton;
} // namespace tsms

namespace tsms::test {

/// The whole program in the test's process: a test database with an open account, the simulated gateway, a
/// desk that plays a script, a clock that stands at 14:07:09 on 30 May 2012, and an empty folder of its own.
/// On the server of the tests it logs in as a user who has the rights that tsms-db tells the owner to grant,
/// and no more.
class Program
{
public:
    /// `original` as with TestDatabase.
    explicit Program(TestEngine engine = ChosenTestEngine(), const QString& original = {});
    /// On a copy of a prepared database file, by that engine.
    Program(const QString& original, TestEngine engine);
    ~Program();

    QString LaunchLine() const;

    /// Runs a batch on the server of the tests as the owner of the database, past the program.
    void RunAsOwner(const QString& batch);

    /// Starts by the launch line and shows the main window. False when there is none.
    bool Start();
    bool Start(const QString& command);
    int exitStatus = 0;

    /// A control of the main window, or of another form of that name, by its name.
    template <class W> W& On(QWidget& window, const QString& name)
    {
        W* found = dynamic_cast<W*>(window.findChild<QWidget*>(name));
        if (!found)
            throw std::runtime_error("no control " + name.toStdString());
        return *found;
    }
    template <class W> W& The(const QString& name) { return On<W>(*form, name); }
    QWidget& Control(const QString& name) { return The<QWidget>(name); }
    fpSpread& Recipients() { return The<fpSpread>(u"fpSpread"_q); }
    QString Caption(const QString& labelName);
    void Click(const QString& name) { ClickOn(Control(name)); }

    /// Types the message and, into the first rows of the list, the recipients: name, number.
    void Write(const QString& message);
    void List(const QList<QStringList>& recipients);

    /// Clicks "send" on the page, runs `act` in the dialog that opens, and then clicks its send button.
    void Send(std::function<void(QWidget& dialog)> act = {});

    int Balance() { return database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q).toInt(); }
    int LogRows() { return database.Count(u"SMSLog_2012"_q); }

    /// A file that is named from the program's folder, such as "../x" or "y".
    QString Path(const QString& name) const { return services.applicationPath + u'/' + name; }
    void WriteFile(const QString& name, const QByteArray& content);

    QTemporaryDir home; ///< the program's folder is "tsms" in it
    FixedClock clock;
    TestDatabase database;
    FailingConnections connections;
    TestGateway gateway;
    ScriptedDesktop desktop;
    Session session;
    DBConnect db;
    ModSMS sms;
    Services services;
    std::unique_ptr<frmSMSMain> form;

    // On the server of the tests.
    static const QString User;  ///< who has but the rights that are needed
    bool startsAsOwner = false; ///< instead, who may do everything
};

// The boxes that several tests expect.
Box SentBox();
Box NothingSentBox();
Box SendFailureBox(const QString& code = {}, const QString& reason = {});
Box ServerDownBox();
Box SignUpBox();
Box ChargeBox();
Box ShortageBox();

} // namespace tsms::test
