#include "tsms-start/SavedConnection.h"

#include "session/Session.h"
#include "shell/LaunchLine.h"
#include "store/engine/ConnectionText.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

SavedConnection ServerConnection()
{
    SavedConnection connection;
    connection.name = u"본사"_q;
    connection.kind = SavedConnection::Kind::Server;
    connection.server = u"sql.example.kr"_q;
    connection.port = u"1434"_q;
    connection.database = u"SmsDb"_q;
    connection.login = u"sms"_q;
    connection.number = u"7"_q;
    connection.text = u"본사 3층"_q;
    return connection;
}

SavedConnection FileConnection(const QString& file)
{
    SavedConnection connection;
    connection.name = u"연습"_q;
    connection.file = file;
    return connection;
}

/// What the program makes of a launch line.
Session Stored(const QString& line)
{
    Session session;
    StoreLaunchLine(line, session);
    return session;
}

ConnectionParts PartsOf(const QString& line)
{
    return ParseConnectionText(AssembleConnectionText(Stored(line)));
}

} // namespace

TEST(SavedConnection, ToAServerIsALaunchLineOfItsFields)
{
    EXPECT_EQ(LaunchLineOf(ServerConnection(), u"secret"_q),
              u"SmsDb■sql.example.kr■1434■sms■secret■7■본사 3층"_q);
}

TEST(SavedConnection, ToAFileNamesTheEmbeddedServerAndNoPassword)
{
    EXPECT_EQ(LaunchLineOf(FileConnection(u"/home/a/문자.db"_q), u"unused"_q),
              u"/home/a/문자.db■(embedded)■■■■1■"_q);
}

TEST(SavedConnection, ReachesTheProgramWithEveryPassword)
{
    for (const QString& password : {u"plain"_q, u"a;b"_q, u"\"a"_q, u"'a'"_q, u"a\"b;c"_q, u" a "_q,
                                    u"\"\";"_q, u"{x}"_q, u"비밀=1"_q}) {
        const ConnectionParts parts = PartsOf(LaunchLineOf(ServerConnection(), password));
        EXPECT_EQ(parts.password, password);
        EXPECT_EQ(parts.user, u"sms"_q);
        EXPECT_EQ(parts.catalog, u"SmsDb"_q);
        EXPECT_EQ(parts.server, u"sql.example.kr"_q);
        EXPECT_EQ(parts.port, u"1434"_q);
    }
}

TEST(SavedConnection, ReachesTheProgramWithEveryFileName)
{
    for (const QString& file : {u"/a/b.db"_q, u"/a;b/c.db"_q, u"/a/ b"_q, u"/a/\"b\".db"_q, u"/a/b "_q})
        EXPECT_EQ(PartsOf(LaunchLineOf(FileConnection(file), {})).catalog, file);
}

TEST(SavedConnection, IsTestedWithTheTextThatTheProgramMakes)
{
    EXPECT_EQ(ConnectionTextOf(ServerConnection(), u"a;b"_q),
              AssembleConnectionText(Stored(LaunchLineOf(ServerConnection(), u"a;b"_q))));
    EXPECT_EQ(ParseConnectionText(ConnectionTextOf(ServerConnection(), u"x"_q, u"master"_q)).catalog,
              u"master"_q);
}

TEST(SavedConnection, SaysInOneLineWhereItLeads)
{
    EXPECT_EQ(PlaceOf(ServerConnection()), u"sql.example.kr,1434 / SmsDb"_q);
    SavedConnection usualPort = ServerConnection();
    usualPort.port.clear();
    EXPECT_EQ(PlaceOf(usualPort), u"sql.example.kr / SmsDb"_q);
    EXPECT_EQ(PlaceOf(FileConnection(u"/a/b.db"_q)), u"/a/b.db"_q);
}

TEST(SavedConnection, WithoutAFaultCanBeStarted)
{
    EXPECT_EQ(FaultOf(ServerConnection(), u"secret"_q), QString());
    EXPECT_EQ(FaultOf(FileConnection(u"/a/b.db"_q), {}), QString());
}

TEST(SavedConnection, TellsItsFirstFault)
{
    using Member = QString SavedConnection::*;
    struct Case
    {
        Member field;
        QString value;
        QString fault;
    };
    const QString number = u"호출 번호에는 -2147483648부터 2147483647까지의 숫자를 입력하여 주십시오."_q;
    const QString sign = u"■ 글자와 줄바꿈은 쓸 수 없습니다."_q;
    const Case cases[] = {
        {&SavedConnection::name, u" "_q, u"연결 이름을 입력하여 주십시오."_q},
        {&SavedConnection::server, {}, u"서버를 입력하여 주십시오."_q},
        {&SavedConnection::server, u"a,1433"_q,
         u"서버에는 이름이나 주소만 입력하고, 포트는 아래 칸에 입력하여 주십시오."_q},
        {&SavedConnection::port, u"-1"_q, u"포트에는 숫자만 입력하여 주십시오. 비워 두면 1433입니다."_q},
        {&SavedConnection::database, {}, u"데이터베이스를 입력하여 주십시오."_q},
        {&SavedConnection::login, {}, u"로그인을 입력하여 주십시오."_q},
        {&SavedConnection::number, {}, number},
        {&SavedConnection::number, u"2147483648"_q, number},
        {&SavedConnection::text, u"it's"_q, u"호출 문구에는 작은따옴표(')를 쓸 수 없습니다."_q},
        {&SavedConnection::text, QString(2001, u'가'), u"호출 문구가 너무 깁니다."_q},
        {&SavedConnection::login, u"a■b"_q, sign},
        {&SavedConnection::text, u"a\nb"_q, sign},
    };
    for (const Case& one : cases) {
        SavedConnection connection = ServerConnection();
        connection.*one.field = one.value;
        EXPECT_EQ(FaultOf(connection, u"secret"_q), one.fault);
    }
    EXPECT_EQ(FaultOf(ServerConnection(), u"a■b"_q), sign);
    EXPECT_EQ(FaultOf(FileConnection({}), {}), u"데이터베이스 파일을 입력하여 주십시오."_q);
}

} // namespace tsms::test
