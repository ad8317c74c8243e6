#include "gateway/LogStatement.h"

#include "session/Session.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

Session AnySession()
{
    Session session;
    session.SMSID = u"demo"_q;
    session.UserData1 = 7;
    session.UserData2 = u"지점"_q;
    return session;
}

LogEntry AnyEntry()
{
    return {u"홍길동"_q, u"01012345678"_q, u"02-1234-5678"_q, u"안녕하세요"_q, u"2012-05-30 14:07"_q};
}

Reply AnyReply()
{
    Reply reply;
    reply.ReturnValue = true;
    reply.UniqueNum = u"123"_q;
    return reply;
}

} // namespace

TEST(LogStatement, AnInsertStandsToTheLetter)
{
    EXPECT_EQ(
        LogInsert(AnySession(), AnyEntry(), AnyReply()).Text(),
        u"Insert INTO SMSLog_2012 (SMSStatus, SMSNo, SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,"
        u"SendTime,UserData1,UserData2,UserData3,ErrCd,ErrMsg,RegDt )  VALUES ('1','123','demo','홍길동',"
        u"'01012345678','02-1234-5678','안녕하세요','2012-05-30 14-07','7','지점',Null,Null,Null,"
        u"getdate())"_q);
}

TEST(LogStatement, ARefusedMessageHasStatusTwoAndTheFailureTexts)
{
    Reply reply;
    reply.ErrorCode = u"E1"_q;
    reply.ErrorMsg = u"거부"_q;
    EXPECT_EQ(
        LogInsert(AnySession(), AnyEntry(), reply).Text(),
        u"Insert INTO SMSLog_2012 (SMSStatus, SMSNo, SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,"
        u"SendTime,UserData1,UserData2,UserData3,ErrCd,ErrMsg,RegDt )  VALUES ('2',Null,'demo','홍길동',"
        u"'01012345678','02-1234-5678','안녕하세요','2012-05-30 14-07','7','지점',Null,'E1','거부',"
        u"getdate())"_q);
}

TEST(LogStatement, EmptyAndBlankValuesAreNullAndOthersTrimmed)
{
    Session session;
    session.SMSID = u"  "_q;
    session.UserData1 = -12;
    LogEntry entry{u" "_q, QString(), u" 02 "_q, u"  앞뒤 빈칸  "_q, u" 2013:01:02:03:05 "_q};
    EXPECT_EQ(LogInsert(session, entry, Reply()).Text(),
              u"Insert INTO SMSLog_2013 (SMSStatus, SMSNo, SMSID,SendNm,SendTelNo,ReceiveTelNo,SMSContent,"
              u"SendTime,UserData1,UserData2,UserData3,ErrCd,ErrMsg,RegDt )  VALUES ('2',Null,Null,Null,Null,"
              u"'02','앞뒤 빈칸','2013-01-02-03-05','-12',Null,Null,Null,Null,getdate())"_q);
}

TEST(LogStatement, TheTableIsThatOfTheYearOfDelivery)
{
    LogEntry entry = AnyEntry();
    entry.SendTime = u"2013:01:01:00:05"_q;
    EXPECT_TRUE(LogInsert(AnySession(), entry, AnyReply()).Text().startsWith(u"Insert INTO SMSLog_2013 ("));
}

TEST(LogStatement, AnApostropheIsNotEscapedAndIsAFault)
{
    LogEntry entry = AnyEntry();
    entry.Content = u"it's; it's"_q;
    const Statement insert = LogInsert(AnySession(), entry, AnyReply());
    EXPECT_TRUE(insert.Text().contains(u"'it's; it's'"));
    EXPECT_NE(insert.Fault(), QString());
}

TEST(LogStatement, AValueThatImitatesTheRestOfTheStatementIsAFault)
{
    LogEntry entry = AnyEntry();
    entry.RecvNm = u"x','y"_q;
    EXPECT_NE(LogInsert(AnySession(), entry, AnyReply()).Fault(), QString());
    entry = AnyEntry();
    entry.Content = u"x'); DELETE SMSSetup --"_q;
    EXPECT_NE(LogInsert(AnySession(), entry, AnyReply()).Fault(), QString());
}

TEST(LogStatement, TheProgramsOwnWordsAreNoFault)
{
    EXPECT_EQ(LogInsert(AnySession(), AnyEntry(), AnyReply()).Fault(), QString());
    EXPECT_EQ(LogDelete(u"17"_q, u"2012"_q).Fault(), QString());
}

TEST(LogStatement, ADeleteStandsToTheLetter)
{
    EXPECT_EQ(LogDelete(u"17"_q, u" 2012-05-30 14:07"_q).Text(), u"DELETE SMSLog_2012 WHERE SMSKey = 17"_q);
}

TEST(LogStatement, AKeyThatIsNoNumberIsAFault)
{
    EXPECT_NE(LogDelete(u"1 OR 1=1"_q, u"2012"_q).Fault(), QString());
    EXPECT_NE(LogDelete(u"1"_q, u"2 W"_q).Fault(), QString());
}

TEST(LogTime, ABlankTimeIsThePresentMinute)
{
    const QDateTime now(QDate(2012, 5, 3), QTime(4, 7, 59));
    EXPECT_EQ(LogTime(QString(), now), u"2012-05-03 04:07"_q);
    EXPECT_EQ(LogTime(u"   "_q, now), u"2012-05-03 04:07"_q);
}

TEST(LogTime, AReservationStandsAsItIs)
{
    EXPECT_EQ(LogTime(u"2013:01:02:03:05"_q, QDateTime(QDate(2012, 5, 3), QTime(4, 7))),
              u"2013:01:02:03:05"_q);
}

} // namespace tsms::test
