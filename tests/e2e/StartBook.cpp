#include "e2e/StartBook.h"

#include "session/Session.h"
#include "store/engine/ConnectionText.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/program/Hands.h"
#include "support/Words.h"
#include "toolkit/fields/TextField.h"
#include "tsms-start/BackgroundWork.h"
#include "tsms-start/StartWindow.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>
#include <QtTest/QTest>

namespace tsms::test {

namespace {

/// Reaches one database, whatever it is told: so a picture shows the name of a server and never a port that
/// the system chose.
class Redirected final : public Connection
{
public:
    explicit Redirected(const TestDatabase& database) : inner_(database.Connections()())
    {
        Session session;
        database.Describe(session);
        inner_->ConnectionString = AssembleConnectionText(session);
    }
    bool IsOpen() const override { return inner_->IsOpen(); }
    void Open() override { inner_->Open(); }
    void Close() override { inner_->Close(); }
    std::unique_ptr<Recordset> Query(const Statement& statement) override { return inner_->Query(statement); }
    void Execute(const Statement& statement) override { inner_->Execute(statement); }

private:
    std::unique_ptr<Connection> inner_;
};

/// A desk whose key store is locked.
class LockedPasswords final : public PasswordStore
{
public:
    Answer Read(const QString&) override { return {}; }
    Outcome Write(const QString&, const QString&) override { return Outcome::Failed; }
    Outcome Remove(const QString&) override { return Outcome::Failed; }
};

SavedConnection HeadOffice()
{
    SavedConnection connection;
    connection.name = u"본사"_q;
    connection.kind = SavedConnection::Kind::Server;
    connection.server = u"sql.example.kr"_q;
    connection.database = u"SmsDb"_q;
    connection.login = u"sms"_q;
    connection.keepsPassword = true;
    return connection;
}

SavedConnection Practice()
{
    SavedConnection connection;
    connection.name = u"연습"_q;
    connection.file = u"/home/clerk/연습.db"_q;
    return connection;
}

/// One turn through the windows.
class Turn
{
public:
    explicit Turn(const PictureDesk::TakePicture& take)
        : take_(take),
          desk_([this](QWidget& of, const QString& name) { Take(of, name); }),
          settings_(home_.filePath(u"settings.ini"_q), QSettings::IniFormat),
          connections_(settings_),
          services_{session_,
                    desk_,
                    clock_,
                    connections_,
                    passwords_,
                    [this] { return std::make_unique<Redirected>(database_); },
                    [] { return QString(); },
                    [](const QString&) { return true; },
                    true,
                    u"/home/clerk/.local/share/tsms"_q}
    {
        database_.Execute(u"DROP TABLE SMSLog_2012"_q);
        database_.Execute(u"DROP TABLE SMSCharge"_q);
    }

    void Through()
    {
        Open();
        Take(*window_, u"start-empty"_q);
        New();
        connections_.Put(Practice());
        connections_.Put(HeadOffice());
        Open();
        Take(*window_, u"start"_q);
        Remove();
        Within(u"PasswordDialog"_q, u"BtnFunc(0)"_q,
               [this](QWidget& dialog) { Take(dialog, u"start-password"_q); });
        Test(u"start-test-faults"_q);
        Prepare();
        Test(u"start-test"_q);
        desk_.ExpectNoneLeft();
    }

private:
    void Open()
    {
        window_ = std::make_unique<StartWindow>(services_);
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        window_->move(40, 30);
    }
    void Take(QWidget& of, const QString& name)
    {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&of)) << name.toStdString();
        Settle();
        take_(of, name);
    }
    void AwaitWork()
    {
        EXPECT_TRUE(QTest::qWaitFor([] { return !BackgroundWork::IsAnyLeft(); }));
        Settle();
    }
    QWidget& On(QWidget& form, const QString& name)
    {
        auto* found = form.findChild<QWidget*>(name);
        if (!found)
            qFatal("no control %s", qPrintable(name));
        return *found;
    }
    void Within(const QString& form, const QString& button, const std::function<void(QWidget&)>& act)
    {
        WhenShown(form, [&act](QWidget& dialog) {
            act(dialog);
            PressKey(dialog, Qt::Key_Escape);
        });
        ClickOn(On(*window_, button));
    }
    void Type(QWidget& dialog, int field, const QString& text)
    {
        QWidget& box = On(dialog, u"txtUpdate(%1)"_q.arg(field));
        box.setFocus();
        TypeText(box, text);
    }

    void New()
    {
        Within(u"ConnectionDialog"_q, u"BtnConnection(0)"_q, [this](QWidget& dialog) {
            Type(dialog, 0, u"연습"_q);
            Take(dialog, u"start-new-file"_q);
            desk_.Await(u"box-start-make-file"_q, AnswerNo);
            PressKey(dialog, Qt::Key_F12);
            ClickOn(On(dialog, u"OptKind(1)"_q));
            Type(dialog, 3, u"sql.example.kr"_q);
            Type(dialog, 5, u"SmsDb"_q);
            Type(dialog, 6, u"sms"_q);
            Type(dialog, 7, u"secret"_q);
            Take(dialog, u"start-new-server"_q);
        });
    }
    void Remove()
    {
        desk_.Await(u"box-start-remove"_q, AnswerNo);
        ClickOn(On(*window_, u"BtnConnection(2)"_q));
    }
    void Test(const QString& name)
    {
        WhenShown(u"PasswordDialog"_q, [&](QWidget& asked) {
            WhenShown(u"TestDialog"_q, [&](QWidget& dialog) {
                AwaitWork();
                Take(dialog, name);
                PressKey(dialog, Qt::Key_Escape);
            });
            TypeText(On(asked, u"txtUpdate(0)"_q), u"secret\n"_q);
        });
        ClickOn(On(*window_, u"BtnConnection(3)"_q));
        Open(); // a typed password is forgotten with the window
    }
    void Prepare()
    {
        Within(u"PrepareDialog"_q, u"BtnConnection(4)"_q, [this](QWidget& dialog) {
            Type(dialog, 1, u"secret"_q);
            ClickOn(On(dialog, u"BtnLook"_q));
            AwaitWork();
            Take(dialog, u"start-prepare"_q);
            desk_.Await(u"box-start-prepared"_q);
            PressKey(dialog, Qt::Key_F12);
            AwaitWork();
        });
    }

    const PictureDesk::TakePicture& take_;
    QTemporaryDir home_;
    FixedClock clock_;
    TestDatabase database_{clock_, {2010, 2030}, TestEngine::Server};
    PictureDesk desk_;
    Session session_;
    QSettings settings_;
    ConnectionList connections_;
    LockedPasswords passwords_;
    StartServices services_;
    std::unique_ptr<StartWindow> window_;
};

} // namespace

void StartBook::TurnAllPages()
{
    Turn(take_).Through();
}

} // namespace tsms::test
