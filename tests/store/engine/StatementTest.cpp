#include "store/engine/Statement.h"
#include "support/AttackTexts.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

Statement MemberOfName(const QString& name)
{
    return Statement(u"SELECT GSubNm FROM SMSGroupSub   WHERE GSubNm =").InQuotes(name);
}

Statement MemberWithNumberLike(const QString& number)
{
    return Statement(u"SELECT GSubNm FROM SMSGroupSub WHERE GSPhone LIKE ").InQuotes(u'%' + number + u'%');
}

Statement Insert(const QString& first, const QString& second)
{
    return Statement(u"Insert INTO SMSTempLSub  (TempLCd, TempLSubNm, TempLContent) VALUES (")
        .Bare(u"1")
        .Own(u",")
        .Quoted(first)
        .Own(u",")
        .Quoted(second)
        .Own(u")");
}

QString BareFault(const QString& value)
{
    return Statement(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - ").Bare(value).Fault();
}

} // namespace

TEST(Statement, JoinsTextsAsTheyStand)
{
    const Statement statement = Statement(u" SELECT  ").Own(u" x  ").InQuotes(u" y ").Bare(u" 1 ");
    EXPECT_EQ(statement.Text(), u" SELECT   x  ' y ' 1 "_q);
}

TEST(Statement, AnOptionalTextIsTrimmedAndQuoted)
{
    EXPECT_EQ(Statement().Quoted(u"  김 민준 ").Text(), u"'김 민준'"_q);
}

TEST(Statement, AnEmptyOptionalTextIsTheWordNull)
{
    EXPECT_EQ(Statement().Quoted(u"").Text(), u"Null"_q);
    EXPECT_EQ(Statement().Quoted(u"   ").Text(), u"Null"_q);
}

TEST(Statement, OnlyBlanksAreTrimmedFromAnOptionalText)
{
    EXPECT_EQ(Statement().Quoted(u" \r\n ").Text(), u"'\r\n'"_q);
}

TEST(Statement, TheProgramsOwnTextsAreNoFault)
{
    const QStringList own = {
        u"SELECT * FROM SMSSetup"_q,
        u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1"_q,
        u"DELETE FROM SMSGroupSub WHERE GSubCd =7"_q,
        u"UPDATE SMSGroupSub SET GroupCd = NULL WHERE GroupCd =3"_q,
        u" SELECT GSubCd, (CASE WHEN P.GroupCd IS NULL THEN '기타' ELSE (SELECT  GroupNm FROM SMSGroupMst WHERE GroupCd = P.GroupCd) END) AS GroupNm,  GSubNm, GSPhone FROM SMSGroupSub AS P  WHERE P.GroupCd IS NULL"_q,
        u"SELECT  SMSKey, SMSStatus, SMSNo, (CASE WHEN SMSStatus ='0' THEN '예약중' ELSE (CASE WHEN SMSStatus ='1' THEN '성공' ELSE '실패' END) END), SendNm, SendTelNo, (LEFT(SendTime,10) + ' ' + REPLACE(RIGHT(SendTime,5),'-',':')) AS nSendTime,  SMSContent, ErrCd, ErrMsg  FROM SMSLog_2012 AS P WHERE  1 = 1  ORDER BY SendTime DESC "_q,
    };
    for (const QString& text : own)
        EXPECT_EQ(Statement(text).Fault(), QString()) << text.toStdString();
}

TEST(Statement, SignsInsideAQuotedValueAreNoFault)
{
    for (const QString& harmless : {u"a;b"_q, u"a -- b"_q, u"/* a */"_q, u"\"a\""_q, u"[받는사람]"_q,
                                    u"drop table x"_q, u"’"_q, u"a\r\nGO\r\nb"_q}) {
        EXPECT_EQ(MemberOfName(harmless).Fault(), QString()) << harmless.toStdString();
        EXPECT_EQ(Insert(harmless, harmless).Fault(), QString()) << harmless.toStdString();
    }
}

TEST(Statement, AValueWithOneApostropheIsLeftToTheServer)
{
    EXPECT_EQ(MemberOfName(u"O'Brien"_q).Fault(), QString());
    EXPECT_EQ(Insert(u"O'Brien"_q, u"x"_q).Fault(), QString());
}

TEST(Statement, ValuesWhoseApostrophesBalanceAreRefused)
{
    EXPECT_EQ(MemberOfName(u"x' OR 'a'='a"_q).Fault(), u"Incorrect syntax near 'OR'."_q);
    EXPECT_EQ(MemberOfName(u"O''Brien"_q).Fault(), u"Incorrect syntax near 'Brien'."_q);
    EXPECT_EQ(MemberOfName(u"x''"_q).Fault(), u"Incorrect syntax near ''."_q); // nothing stands behind it
    EXPECT_EQ(Insert(u"a'"_q, u"'b"_q).Fault(), u"Incorrect syntax near ','."_q);
    EXPECT_EQ(Insert(u"x', 'y"_q, u"z"_q).Fault(), u"Incorrect syntax near ','."_q);
    EXPECT_EQ(MemberOfName(u"x'; DELETE SMSSetup WHERE 'a'='a"_q).Fault(), u"Incorrect syntax near ';'."_q);
}

TEST(Statement, EveryAttackIsRefusedAtEachPlaceOfAValue)
{
    for (const AttackText& attack : AttackTexts)
        for (const auto& [text, near] :
             {std::pair(attack.text, attack.near), {attack.brief, attack.nearBrief}}) {
            SCOPED_TRACE(attack.name + ": " + text.toStdString());
            const QString refusal = u"Incorrect syntax near '%1'."_q.arg(near);
            EXPECT_EQ(MemberOfName(text).Fault(), refusal);
            EXPECT_EQ(Insert(text, u"a"_q).Fault(), refusal);
            EXPECT_EQ(Insert(u"a"_q, text).Fault(), refusal);
            EXPECT_EQ(MemberWithNumberLike(text).Fault(), refusal);
        }
}

TEST(Statement, AValueThatHidesTheClosingQuoteIsRefused)
{
    // Each of these has one or three apostrophes and would still be a whole text for a server that reads the
    // comment or the quoted name.
    for (const QString& attack :
         {u"x' --"_q, u"x' OR 1=1 --"_q, u"x' OR 1=1 /*"_q, u"x'; DROP TABLE SMSSetup --"_q,
          u"x' OR [']=''+'"_q, u"x' OR \"'\"=''+'"_q, u"x' /* /* */ '*/"_q})
        EXPECT_NE(MemberOfName(attack).Fault(), QString()) << attack.toStdString();
    EXPECT_NE(Insert(u"x' /*"_q, u"*/, 'y"_q).Fault(), QString());
}

TEST(Statement, AValueThatEndsTheTextForADriverIsRefused)
{
    for (const QString& attack :
         {u"x'\0"_q, u"x'\0y"_q, u"\0x"_q, u"x\0"_q, u"x'"_q + QChar(0xD800), QChar(0xDC00) + u"x"_q}) {
        EXPECT_EQ(MemberOfName(attack).Fault(), u"Incorrect syntax near ''."_q);
        EXPECT_EQ(Insert(u"a"_q, attack).Fault(), u"Incorrect syntax near ''."_q);
        EXPECT_EQ(BareFault(attack), u"Incorrect syntax near ''."_q);
    }
    EXPECT_EQ(MemberOfName(u"\U0001F600"_q).Fault(), QString()); // a whole pair
}

TEST(Statement, ABareValueOfNumbersIsNoFault)
{
    for (const QString& number : {u"5"_q, u"-5"_q, u" 12 "_q, u"1.5"_q, u".5"_q, u"1-2"_q, u"3*4/2"_q,
                                  u"1e3"_q, u"1e-3"_q, u"1E+3"_q, u"1 + -2"_q})
        EXPECT_EQ(BareFault(number), QString()) << number.toStdString();
}

TEST(Statement, ABareValueThatIsNoNumberIsRefused)
{
    EXPECT_EQ(BareFault(u"5 x"_q), u"Incorrect syntax near 'x'."_q);
    EXPECT_EQ(BareFault(u"1 OR 1=1"_q), u"Incorrect syntax near 'OR'."_q);
    EXPECT_EQ(BareFault(u"1; DELETE SMSSetup"_q), u"Incorrect syntax near ';'."_q);
    EXPECT_EQ(BareFault(u"SMSRemainCnt"_q), u"Incorrect syntax near 'SMSRemainCnt'."_q);
    EXPECT_EQ(BareFault(u"1--2"_q), u"Incorrect syntax near '--'."_q);
    EXPECT_EQ(BareFault(u"1/*2"_q), u"Incorrect syntax near '/*'."_q);
    EXPECT_EQ(BareFault(u"1,000"_q), u"Incorrect syntax near ','."_q);
    EXPECT_EQ(BareFault(u"1 2"_q), u"Incorrect syntax near '2'."_q);
    EXPECT_EQ(BareFault(u"5-"_q), u"Incorrect syntax near '-'."_q);
    EXPECT_EQ(BareFault(u"."_q), u"Incorrect syntax near '.'."_q);
    EXPECT_EQ(BareFault(u"1e"_q), u"Incorrect syntax near 'e'."_q);
    EXPECT_EQ(BareFault(u"'5'"_q), u"Incorrect syntax near '''."_q);
    EXPECT_EQ(BareFault(u"(1)"_q), u"Incorrect syntax near '('."_q);
}

TEST(Statement, ABareDivisionByZeroIsRefused)
{
    EXPECT_EQ(BareFault(u"1/0"_q), u"Divide by zero error encountered."_q);
    EXPECT_EQ(BareFault(u"4/2/0.0"_q), u"Divide by zero error encountered."_q);
    EXPECT_EQ(BareFault(u"0/4"_q), QString());
}

TEST(Statement, ABareMinusThatMeetsAnotherMakesNoComment)
{
    EXPECT_EQ(Statement(u"SELECT 5 -").Bare(u"-1").Fault(), u"Incorrect syntax near '--'."_q);
}

TEST(Statement, AnEmptyBareValueIsLeftToTheServer)
{
    EXPECT_EQ(BareFault(QString()), QString());
}

} // namespace tsms::test
