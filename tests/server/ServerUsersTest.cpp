#include "server/ServerFixture.h"

namespace tsms::test {

namespace {

/// The owner at one client, and at the other somebody who may do what the owner grants.
class Users : public ServerFixture
{
protected:
    Users()
    {
        server_.AddUser(u"clerk"_q, u"duty"_q);
        Connect();
        EXPECT_TRUE(clerk_.Connect(server_, u"UID=clerk;PWD=duty;"_q)) << clerk_.First().Words.toStdString();
    }

    void ExpectRefused(const QString& sql, int number, const QString& words)
    {
        EXPECT_FALSE(clerk_.Execute(sql)) << sql.toStdString();
        EXPECT_EQ(clerk_.First().Number, number) << sql.toStdString();
        EXPECT_TRUE(clerk_.First().Words.endsWith(words)) << clerk_.First().Words.toStdString();
    }
    void ExpectDenied(const QString& sql, const QString& action, const QString& table)
    {
        ExpectRefused(
            sql, 229,
            u"The %1 permission was denied on the object '%2', database 'TSMS', schema 'dbo'."_q.arg(action,
                                                                                                     table));
    }
    void ExpectDone(const QString& sql)
    {
        EXPECT_TRUE(clerk_.Execute(sql)) << sql.toStdString() << ": " << clerk_.First().Words.toStdString();
    }

    OdbcClient clerk_;
};

const QString Read = u"SELECT GroupNm FROM SMSGroupMst"_q;
const QString Write = u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('청년부')"_q;
const QString Rename = u"UPDATE SMSGroupMst SET GroupNm='장년부' WHERE GroupCd=1"_q;
const QString Remove = u"DELETE FROM SMSGroupMst WHERE GroupCd=1"_q;

} // namespace

TEST_F(Users, MayDoNothingAtFirst)
{
    ExpectDenied(Read, u"SELECT"_q, u"SMSGroupMst"_q);
    ExpectDenied(Write, u"INSERT"_q, u"SMSGroupMst"_q);
    ExpectDenied(Rename, u"UPDATE"_q, u"SMSGroupMst"_q);
    ExpectDenied(Remove, u"DELETE"_q, u"SMSGroupMst"_q);
    EXPECT_EQ(database_.Count(u"SMSGroupMst"_q), 0);
}

TEST_F(Users, MayDoWhatIsGrantedAndNothingElse)
{
    Run(u"GRANT SELECT, INSERT ON [SMSGroupMst] TO [clerk]"_q);
    ExpectDone(Write);
    ExpectDone(Read);
    EXPECT_EQ(clerk_.Rows(), (QList<QStringList>{{u"청년부"_q}}));
    ExpectDenied(Rename, u"UPDATE"_q, u"SMSGroupMst"_q);
    ExpectDenied(Remove, u"DELETE"_q, u"SMSGroupMst"_q);
    ExpectDenied(u"SELECT SMSID FROM SMSSetup"_q, u"SELECT"_q, u"SMSSetup"_q);
}

TEST_F(Users, NeedSelectForAnUpdateOrADeleteThatReads)
{
    Run(u"GRANT INSERT, UPDATE, DELETE ON dbo.SMSGroupMst TO clerk"_q);
    ExpectDone(Write);
    ExpectDenied(Rename, u"SELECT"_q, u"SMSGroupMst"_q);
    ExpectDenied(Remove, u"SELECT"_q, u"SMSGroupMst"_q);
    ExpectDone(u"UPDATE SMSGroupMst SET GroupNm='장년부'"_q);
    ExpectDone(u"DELETE FROM SMSGroupMst"_q);
}

TEST_F(Users, LoseWhatIsRevoked)
{
    Run(u"GRANT SELECT, INSERT ON dbo.SMSGroupMst TO [clerk]"_q);
    Run(u"REVOKE SELECT ON dbo.SMSGroupMst FROM [clerk]"_q);
    ExpectDenied(Read, u"SELECT"_q, u"SMSGroupMst"_q);
    ExpectDone(Write);
}

TEST_F(Users, AreGrantedManyTablesByOneBatch)
{
    Run(u"GRANT SELECT ON dbo.SMSGroupMst TO [clerk];\nGRANT SELECT ON dbo.SMSGroupSub TO [CLERK];\n"_q);
    ExpectDone(u"SELECT (SELECT GroupNm FROM SMSGroupMst WHERE GroupCd=P.GroupCd) FROM SMSGroupSub AS P"_q);
}

TEST_F(Users, HearOfATableThatIsMissingAndNotOfTheRightToIt)
{
    ExpectRefused(u"SELECT * FROM SMSLog_1999"_q, 208, u"Invalid object name 'SMSLog_1999'."_q);
}

TEST_F(Users, MayMakeNoTableAndGrantNothing)
{
    ExpectRefused(u"CREATE TABLE dbo.SMSLog_2013 (SMSKey int)"_q, 262,
                  u"CREATE TABLE permission denied in database 'TSMS'."_q);
    ExpectRefused(u"GRANT SELECT ON SMSSetup TO clerk"_q, 15151,
                  u"Cannot find the object 'SMSSetup', because it does not exist or you do not have "
                  "permission."_q);
}

TEST_F(Users, GetNoRightsToWhatIsNotThereAndNobodyElseDoes)
{
    EXPECT_FALSE(client_.Execute(u"GRANT SELECT ON SMSLog_1999 TO clerk"_q));
    EXPECT_EQ(client_.First().Number, 15151);
    EXPECT_FALSE(client_.Execute(u"GRANT SELECT ON SMSSetup TO nobody"_q));
    EXPECT_EQ(client_.First().Number, 15151);
    EXPECT_TRUE(client_.First().Words.endsWith(
        u"Cannot find the user 'nobody', because it does not exist or you do not have permission."_q));
}

TEST_F(Users, AreLetInByTheirPasswordToTheirDatabaseAlone)
{
    Run(u"CREATE DATABASE Other"_q);
    OdbcClient other;
    EXPECT_FALSE(other.Connect(server_, u"UID=clerk;PWD=secret;"_q));
    EXPECT_EQ(other.First().Number, 18456);
    EXPECT_FALSE(other.Connect(server_, u"UID=clerk;PWD=duty;DATABASE=Other;"_q));
    EXPECT_TRUE(other.Connect(server_, u"DATABASE=Other;"_q));
}

} // namespace tsms::test
