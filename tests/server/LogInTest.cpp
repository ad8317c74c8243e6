#include "server/ServerFixture.h"

namespace tsms::test {

namespace {

class LogIn : public ServerFixture
{
};

constexpr int LogInFailedNumber = 18456;

} // namespace

TEST_F(LogIn, TellsTheServerWhoAsksForWhat)
{
    ASSERT_TRUE(client_.Connect(server_, u"APP=tsms;"_q)) << client_.First().Words.toStdString();
    ASSERT_EQ(server_.LogIns().size(), 1);
    const ServerLogin logIn = server_.LogIns().first();
    EXPECT_EQ(logIn.User, u"sms"_q);
    EXPECT_EQ(logIn.Password, u"secret"_q);
    EXPECT_EQ(logIn.Database, u"TSMS"_q);
    EXPECT_EQ(logIn.Application, u"tsms"_q);
    EXPECT_EQ(logIn.Version, 0x74000004U);
}

TEST_F(LogIn, WithAWrongPasswordIsRefused)
{
    EXPECT_FALSE(client_.Connect(server_, u"PWD=Secret;"_q));
    EXPECT_EQ(client_.First().Number, LogInFailedNumber);
    EXPECT_TRUE(client_.First().Words.endsWith(u"Login failed for user 'sms'."))
        << client_.First().Words.toStdString();
}

TEST_F(LogIn, OfAnUnknownUserIsRefused)
{
    EXPECT_FALSE(client_.Connect(server_, u"UID=nobody;"_q));
    EXPECT_EQ(client_.First().Number, LogInFailedNumber);
    EXPECT_TRUE(client_.First().Words.endsWith(u"Login failed for user 'nobody'."))
        << client_.First().Words.toStdString();
}

TEST_F(LogIn, TakesUserAndDatabaseInAnyCase)
{
    ASSERT_TRUE(client_.Connect(server_, u"UID=SMS;DATABASE=tsms;"_q)) << client_.First().Words.toStdString();
    EXPECT_EQ(client_.Database(), u"TSMS"_q);
}

TEST_F(LogIn, ToAnUnknownDatabaseIsRefused)
{
    EXPECT_FALSE(client_.Connect(server_, u"DATABASE=Nowhere;"_q));
    EXPECT_EQ(server_.LogIns().value(0).Database, u"Nowhere"_q);
    QStringList words;
    for (const OdbcClient::Diagnostic& diagnostic : client_.Diagnostics())
        words += QString::number(diagnostic.Number) + u" "_q + diagnostic.Words.section(u']', -1);
    // The driver puts the graver one first.
    EXPECT_EQ(
        words.first(2),
        (QStringList{u"18456 Login failed for user 'sms'."_q,
                     u"4060 Cannot open database \"Nowhere\" requested by the login. The login failed."_q}));
}

TEST_F(LogIn, WithoutADatabaseLeadsToTheServersOwn)
{
    ASSERT_TRUE(client_.Connect(server_, u"DATABASE=;"_q)) << client_.First().Words.toStdString();
    EXPECT_EQ(client_.Database(), u"TSMS"_q);
}

TEST_F(LogIn, WithTheWordsOfALanguageOfItsOwnIsUnderstood)
{
    const TestServer server(database_.Path(), clock_,
                            {u"문자"_q, u"비밀;번호=1 {x ~!@#$%^&*"_q, u"문자메시지"_q});
    ASSERT_TRUE(client_.Connect(server)) << client_.First().Words.toStdString();
    EXPECT_EQ(client_.Database(), u"문자메시지"_q);
}

TEST_F(LogIn, IsRefusedWhileTheServerIsTold)
{
    server_.RefuseLogIns();
    EXPECT_FALSE(client_.Connect(server_));
    EXPECT_EQ(client_.First().Number, LogInFailedNumber);
    server_.BehaveAgain();
    EXPECT_TRUE(client_.Connect(server_));
    EXPECT_EQ(server_.LogIns().size(), 2);
}

TEST_F(LogIn, IsRefusedWithTheErrorsThatTheServerIsTold)
{
    server_.RefuseLogIns({{911, 16, 1, u"Database 'TSMS' does not exist."_q}});
    EXPECT_FALSE(client_.Connect(server_));
    EXPECT_EQ(client_.First().State, u"08004"_q);
    EXPECT_EQ(client_.First().Number, 911);
}

TEST_F(LogIn, IsRefusedWhenItIsTheNthAndPassesAgainAfterIt)
{
    server_.RefuseLogIn(2);
    EXPECT_TRUE(client_.Connect(server_));
    OdbcClient other;
    EXPECT_FALSE(other.Connect(server_));
    EXPECT_EQ(other.First().Number, LogInFailedNumber);
    EXPECT_TRUE(other.Connect(server_));
}

TEST_F(LogIn, IsRefusedFromTheNthOnUntilTheServerBehavesAgain)
{
    server_.RefuseLogInsFrom(2);
    EXPECT_TRUE(client_.Connect(server_));
    OdbcClient other;
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_FALSE(other.Connect(server_));
        EXPECT_EQ(other.First().Number, LogInFailedNumber);
    }
    server_.BehaveAgain();
    EXPECT_TRUE(other.Connect(server_));
}

TEST_F(LogIn, IsCutAndTakesTheServerWithIt)
{
    server_.LeaveWithFault();
    server_.CutLogIn(1);
    EXPECT_FALSE(client_.Connect(server_));
    EXPECT_EQ(server_.LogIns().size(), 1);
    EXPECT_FALSE(client_.Connect(server_));
    EXPECT_EQ(server_.LogIns().size(), 1);
    server_.Start();
    EXPECT_TRUE(client_.Connect(server_));
}

TEST_F(LogIn, EndsInATimeOutWhenTheServerIsSilentFromTheBeginning)
{
    server_.StaySilentAtPreLogIn();
    EXPECT_FALSE(client_.Connect(server_, {}, 1));
    EXPECT_EQ(server_.ConnectionCount(), 1);
    EXPECT_EQ(server_.LogIns().size(), 0);
}

TEST_F(LogIn, EndsInATimeOutWhenTheServerFallsSilent)
{
    server_.StaySilentAtLogIn();
    EXPECT_FALSE(client_.Connect(server_, {}, 1));
    EXPECT_EQ(client_.First().State, u"HYT00"_q);
    EXPECT_EQ(server_.LogIns().size(), 0);
    server_.BehaveAgain();
    EXPECT_TRUE(client_.Connect(server_));
}

TEST_F(LogIn, OfAnOlderProtocolFails)
{
    EXPECT_FALSE(client_.Connect(server_, u"TDS_Version=7.1;"_q));
    EXPECT_EQ(server_.LogIns().size(), 1);
}

TEST_F(LogIn, IsCountedUntilTheClientLeaves)
{
    OdbcClient other;
    Connect();
    ASSERT_TRUE(other.Connect(server_));
    EXPECT_TRUE(server_.WaitForOpenConnections(2));
    other.Disconnect();
    EXPECT_TRUE(server_.WaitForOpenConnections(1));
    client_.Disconnect();
    EXPECT_TRUE(server_.WaitForOpenConnections(0));
    EXPECT_EQ(server_.ConnectionCount(), 2);
}

} // namespace tsms::test
