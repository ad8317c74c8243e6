#include "support/program/Program.h"

#include "shell/Main.h"
#include "store/engine/ConnectionText.h"
#include "support/server/TestServer.h"
#include "toolkit/fields/Controls.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QtTest/QTest>

namespace tsms::test {

namespace {

const QString Password = u"duty"_q;

/// Those of whose logs the database has the first and the last, and all between.
YearRange YearsOf(TestDatabase& database)
{
    const QStringList years = database
                                  .Rows(u"SELECT MIN(SUBSTR(name,8)), MAX(SUBSTR(name,8)) FROM sqlite_master "
                                        "WHERE type='table' AND SUBSTR(name,1,7)='SMSLog_'"_q)
                                  .first();
    return {years[0].toInt(), years[1].toInt()};
}

} // namespace

const QString Program::User = u"clerk"_q;

Program::Program(TestEngine engine, const QString& original)
    : database(clock, {2010, 2030}, engine, original),
      connections(database.Connections()),
      gateway(clock),
      db(session, desktop, connections.Maker()),
      sms(session, db, desktop, clock, gateway.WsdlUrl()),
      services{session, desktop, clock, db, sms, home.filePath(u"tsms"_q)}
{
    EXPECT_TRUE(QDir().mkpath(services.applicationPath));
    database.SetAccount();
    if (!database.Server())
        return;
    database.Server()->AddUser(User, Password);
    RunAsOwner(ServerGrants(User, YearsOf(database)));
}

Program::~Program()
{
    // Destroyed without being asked: the closing question belongs to the tests that close the window.
    form.reset();
    QApplication::processEvents();
}

void Program::WriteFile(const QString& name, const QByteArray& content)
{
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

QString Program::LaunchLine() const
{
    Session described;
    database.Describe(described);
    if (database.Server() && !startsAsOwner) {
        described.DBUser = User;
        described.DBPassword = Password;
    }
    return QStringList{described.DBCatalog,
                       described.DBServer,
                       described.DBPort,
                       described.DBUser,
                       described.DBPassword,
                       u"7"_q,
                       u"본사"_q}
        .join(u'■');
}

void Program::RunAsOwner(const QString& batch)
{
    Session owner;
    database.Describe(owner);
    const std::unique_ptr<Connection> connection = database.Connections()();
    connection->ConnectionString = AssembleConnectionText(owner);
    connection->Open();
    connection->Execute(batch);
}

bool Program::Start()
{
    return Start(LaunchLine());
}

bool Program::Start(const QString& command)
{
    Launch launch = Main(command, services);
    form = std::move(launch.form);
    exitStatus = launch.exitStatus;
    if (form) {
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
        // The pages that come when the window has been drawn.
        EXPECT_TRUE(QTest::qWaitFor([this] { return form->findChild<QWidget*>(u"PlToolBg(3)"_q); }));
    }
    return form != nullptr;
}

QString Program::Caption(const QString& labelName)
{
    return The<Label>(labelName).Caption();
}

void Program::Write(const QString& message)
{
    QWidget& field = Control(u"TxtPerSendMsg"_q);
    field.setFocus();
    TypeText(field, message);
}

void Program::List(const QList<QStringList>& recipients)
{
    int row = 0;
    for (const QStringList& recipient : recipients) {
        ++row;
        if (Recipients().Cells().MaxRows() < row)
            Recipients().Cells().SetMaxRows(row);
        TypeIntoCell(Recipients(), 2, row, recipient[0]);
        TypeIntoCell(Recipients(), 3, row, recipient[1]);
    }
}

void Program::Send(std::function<void(QWidget& dialog)> act)
{
    WhenShown(u"MakeSMSTransport"_q, [this, act](QWidget& dialog) {
        if (act)
            act(dialog);
        ClickOn(On<QWidget>(dialog, u"BtnSendS(0)"_q));
    });
    Click(u"BtnSend(0)"_q);
}

Box SentBox()
{
    return {u"문자메세지 전송 완료!!!"_q, u"정상적으로 문자 메시지가 전송 되었습니다."_q, MsgBoxInformation};
}

Box NothingSentBox()
{
    return {u"문자메세지 전송 실패!!!"_q,
            u"전송된 문자메시지가 없습니다. 핸드폰번호가 없거나 잘못된 형식입니다."_q, MsgBoxCritical};
}

Box SendFailureBox(const QString& code, const QString& reason)
{
    return {u"문자메시지 발송실패!!!"_q,
            u"문자발송 실패!!! :  실패코드 = "_q + code + u" 실패사유 = "_q + reason, MsgBoxCritical};
}

Box ServerDownBox()
{
    return {
        u" - 오류!!!"_q,
        u"★ 데이터베이스서버 상태를 확인하여 주십시오.!\r\n\r\n★ 서버가 종료이거나 인터넷 연결이 안된 상태입니다."_q,
        MsgBoxCritical};
}

Box SignUpBox()
{
    return {u"문자메시지!!!"_q,
            u"문자메시지 서비스 가입이 되질 않았거나 환경설정에 문자메시지 개통정보를 입력하지 "
            u"않았습니다.!\r\n\r\n"
            u"문자메시지 가입 사이트로 이동합니다. 확인을 누르시면 해당 페이지가 오픈이 됩니다.!!"_q,
            MsgBoxCritical};
}

Box ChargeBox()
{
    return {u"문자메시지 충전"_q,
            u"문자메시지 발송가능 건수가 없습니다. 충전하여 주십시오.!!!\r\n\r\n"
            u"만약 충전을 하셨다면 요금현황에서 충전내역을 등록하시길 바랍니다.\r\n\r\n"
            u"확인을 누르시면 충전 페이지가 오픈이 됩니다.!!"_q,
            MsgBoxCritical};
}

Box ShortageBox()
{
    return {u"경고 - 문자메세지 잔여건수 부족"_q,
            u"문자메시지 발송을 위한 발송잔여건수가 부족합니다. 추가 충전 후 사용하여 주십시오.\r\n\r\n"
            u"추가 충전 후 정상적인 문자메시지 발송을 위해 재실행하여 사용해 주시기 바랍니다.\r\n\r\n"
            u"확인을 누르시면 충전 페이지가 오픈이 됩니다.!!"_q,
            MsgBoxExclamation};
}

} // namespace tsms::test
