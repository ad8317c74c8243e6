#include "store/embedded/EmbeddedDialect.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

QString Rewritten(const QString& sql)
{
    return QString::fromUtf8(ToEmbeddedDialect(sql));
}

QString RefusalOf(const QString& sql)
{
    try {
        ToEmbeddedDialect(sql);
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, StatementFailure);
        return error.Description;
    }
    return u"(none)"_q;
}

struct Case
{
    const char16_t* server;
    const char16_t* here;
};

} // namespace

TEST(EmbeddedDialect, RewritesWhatTheEngineLacks)
{
    const Case cases[] = {
        {u"SELECT LEFT(SendTime,10)", u"SELECT server_left(SendTime,10) COLLATE KOREAN_CI"},
        {u"SELECT right ( x , 5 )", u"SELECT server_right ( x , 5 ) COLLATE KOREAN_CI"},
        {u"ISNULL(SUM(x),0)", u"ifnull(SUM(x),0) COLLATE KOREAN_CI"},
        {u"REPLACE(RIGHT(s,5),'-',':')",
         u"replace(server_right(s,5) COLLATE KOREAN_CI,'-',':') COLLATE KOREAN_CI"},
        {u"CONVERT(varchar(10),getdate(),111)", u"server_convert(10,getdate(),111) COLLATE KOREAN_CI"},
        {u"DATEADD(DAY, -1, x)", u"server_dateadd_day( -1, x)"},
        {u"DATEADD(DAY, -1, x) >= y", u"server_dateadd_day( -1, x) >= server_datetime(y)"},
        {u"DELETE SMSLog_2012 WHERE SMSKey = 1", u"DELETE FROM SMSLog_2012 WHERE SMSKey = 1"},
        {u" delete  t", u" delete  FROM t"},
        {u"DELETE FROM t", u"DELETE FROM t"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(Rewritten(QString::fromUtf16(one.server)), QString::fromUtf16(one.here));
}

TEST(EmbeddedDialect, PlusBetweenTextsJoinsThem)
{
    EXPECT_EQ(Rewritten(u"'a' + b"_q), u"'a' || b"_q);
    EXPECT_EQ(Rewritten(u"a+'b'"_q), u"a||'b'"_q);
    EXPECT_EQ(Rewritten(u"(a + 'b') + c"_q), u"(a || 'b') || c"_q);
    EXPECT_EQ(Rewritten(u"a + ('b')"_q), u"a || ('b')"_q);
    EXPECT_EQ(Rewritten(u"a + LEFT(b,1)"_q), u"a || server_left(b,1) COLLATE KOREAN_CI"_q);
    EXPECT_EQ(Rewritten(u"LEFT(b,1) + a"_q), u"server_left(b,1) COLLATE KOREAN_CI || a"_q);
    EXPECT_EQ(Rewritten(u"CONVERT(varchar(10),x,111) + a"_q),
              u"server_convert(10,x,111) COLLATE KOREAN_CI || a"_q);
    EXPECT_EQ(Rewritten(u"a + CONVERT(varchar(10),x,111)"_q),
              u"a || server_convert(10,x,111) COLLATE KOREAN_CI"_q);
}

TEST(EmbeddedDialect, PlusBetweenNumbersAdds)
{
    EXPECT_EQ(Rewritten(u"SET SMSRemainCnt= SMSRemainCnt + 5"_q), u"SET SMSRemainCnt= SMSRemainCnt + 5"_q);
    EXPECT_EQ(Rewritten(u"x='a', y = y + 1"_q), u"x='a', y = y + 1"_q);
    EXPECT_EQ(Rewritten(u"a + SUM(b)"_q), u"a + SUM(b)"_q);
    EXPECT_EQ(Rewritten(u"a + ISNULL(b,0)"_q), u"a + ifnull(b,0) COLLATE KOREAN_CI"_q);
}

TEST(EmbeddedDialect, WhatStandsInQuotesIsNotTouched)
{
    const QString text = u"SELECT 'LEFT(a,1) + ISNULL(b,0) DATEADD(DAY,1,x)', 'it''s'"_q;
    EXPECT_EQ(Rewritten(text), text);
}

TEST(EmbeddedDialect, WhatADateIsComparedWithIsADateWhateverTheSign)
{
    for (const QString& sign : {u"="_q, u"<"_q, u">"_q, u"<="_q, u">="_q, u"<>"_q, u"!="_q})
        EXPECT_EQ(Rewritten(u"DATEADD(DAY,1,x)"_q + sign + u"y"_q),
                  u"server_dateadd_day(1,x)"_q + sign + u"server_datetime(y)"_q);
    EXPECT_EQ(Rewritten(u"DATEADD(DAY,1,x) >= (y)"_q), u"server_dateadd_day(1,x) >= server_datetime((y))"_q);
    EXPECT_EQ(Rewritten(u"DATEADD(DAY,1,x) >= f(y)"_q),
              u"server_dateadd_day(1,x) >= server_datetime(f(y))"_q);
}

TEST(EmbeddedDialect, AQuotedNameIsNotTouched)
{
    for (const QString& text :
         {u"SELECT [LEFT(a)] "_q, u"SELECT [it]]s + 'x'], b"_q, u"SELECT \"LEFT(a)\" "_q})
        EXPECT_EQ(Rewritten(text), text);
}

TEST(EmbeddedDialect, ARoutinesNameWithoutAParenthesisIsAPlainWord)
{
    EXPECT_EQ(Rewritten(u"a LEFT JOIN b"_q), u"a LEFT JOIN b"_q);
}

TEST(EmbeddedDialect, AnUnclosedQuoteIsRefusedInTheServersWords)
{
    EXPECT_EQ(RefusalOf(u"SELECT 'Brien"_q),
              u"Unclosed quotation mark after the character string 'Brien'."_q);
    EXPECT_EQ(RefusalOf(u"SELECT 'a''"_q), u"Unclosed quotation mark after the character string 'a'''."_q);
    EXPECT_EQ(RefusalOf(u"WHERE a ='O'Brien'"_q),
              u"Unclosed quotation mark after the character string ''."_q);
}

TEST(EmbeddedDialect, TextsThatBreakOffAreRefused)
{
    for (const QString& broken : {u"SELECT LEFT("_q, u"SELECT CONVERT("_q, u"SELECT DATEADD(DAY,"_q,
                                  u"SELECT CONVERT(int,x)"_q, u"DATEADD(DAY,1,x) >="_q, u"ISNULL(("_q})
        EXPECT_TRUE(RefusalOf(broken).startsWith(u"Incorrect syntax near '")) << broken.toStdString();
}

TEST(EmbeddedDialect, EveryBeginningOfAStatementIsTakenOrRefused)
{
    const QString whole =
        u" AND (SMSStatus='1' AND DATEADD(DAY, -1, LEFT(SendTime,10)) >= CONVERT(varchar(10),getdate(),111))"_q;
    for (qsizetype size = 0; size <= whole.size(); ++size)
        try {
            ToEmbeddedDialect(whole.left(size));
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, StatementFailure);
        }
}

} // namespace tsms::test
