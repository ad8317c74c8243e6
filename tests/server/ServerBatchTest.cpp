#include "support/server/ServerBatch.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

QStringList Parts(const QString& sql)
{
    QStringList parts;
    for (const ServerStatement& statement : SplitBatch(sql))
        parts += statement.Text;
    return parts;
}

QString RefusalOf(const QString& sql)
{
    try {
        RefuseLongTexts(sql);
    } catch (const RuntimeError& error) {
        return error.Description;
    }
    return {};
}

const QString Truncated = u"String or binary data would be truncated."_q;

} // namespace

TEST(ServerBatch, StatementsArePartedWithAndWithoutASemicolon)
{
    EXPECT_EQ(Parts(u"SELECT 1; SELECT 2 ;"_q), (QStringList{u"SELECT 1"_q, u"SELECT 2"_q}));
    EXPECT_EQ(Parts(u"DELETE a WHERE b = 1 DELETE SMSSetup"_q),
              (QStringList{u"DELETE a WHERE b = 1"_q, u"DELETE SMSSetup"_q}));
    EXPECT_EQ(Parts(u"set x on set y off\nuse z"_q),
              (QStringList{u"set x on"_q, u"set y off"_q, u"use z"_q}));
    EXPECT_EQ(Parts(u"UPDATE a SET b=1 UPDATE c SET d=2 SET e ON"_q),
              (QStringList{u"UPDATE a SET b=1"_q, u"UPDATE c SET d=2"_q, u"SET e ON"_q}));
    EXPECT_EQ(Parts(u"INSERT INTO a (b) VALUES (1) SELECT 2"_q),
              (QStringList{u"INSERT INTO a (b) VALUES (1)"_q, u"SELECT 2"_q}));
}

TEST(ServerBatch, OneStatementStaysOne)
{
    for (const QString& sql :
         {u"UPDATE a SET b=1 WHERE c=2"_q, u"INSERT INTO a SELECT b FROM c"_q,
          u"SELECT 1 UNION ALL SELECT 2"_q, u"SELECT (SELECT 1) FROM a"_q, u"SELECT 'a; DELETE b' FROM c"_q,
          u"SELECT [Select] FROM a"_q, u"DELETE SMSLog_2012 WHERE SMSKey = 1"_q})
        EXPECT_EQ(Parts(sql), QStringList{sql});
}

TEST(ServerBatch, CommentsPartNothing)
{
    EXPECT_EQ(Parts(u"SELECT 1 -- ; DELETE a\n , 2"_q), QStringList{u"SELECT 1 -- ; DELETE a\n , 2"_q});
    EXPECT_EQ(Parts(u"/* DELETE a */ SELECT 1"_q), QStringList{u"SELECT 1"_q});
    EXPECT_EQ(Parts(u"  "_q), QStringList());
}

TEST(ServerBatch, StatementsAreOfAKind)
{
    using Kind = ServerStatement::Kind;
    const std::pair<const char16_t*, Kind> cases[] = {{u"select 1", Kind::Select},
                                                      {u"Insert INTO a (b) VALUES (1)", Kind::Insert},
                                                      {u"Update a set b=1", Kind::Update},
                                                      {u"DELETE a", Kind::Delete},
                                                      {u"SET a ON", Kind::Set},
                                                      {u"use a", Kind::Use},
                                                      {u"CREATE DATABASE a", Kind::Other},
                                                      {u"nonsense", Kind::Other}};
    for (const auto& [sql, kind] : cases) {
        ASSERT_EQ(SplitBatch(QString::fromUtf16(sql)).size(), 1);
        EXPECT_EQ(SplitBatch(QString::fromUtf16(sql)).first().kind, kind)
            << QString::fromUtf16(sql).toStdString();
    }
}

TEST(ServerBatch, AnOpenQuoteIsRefused)
{
    EXPECT_THROW(SplitBatch(u"SELECT 'a"_q), RuntimeError);
}

TEST(EngineText, AWideLiteralIsAPlainOne)
{
    EXPECT_EQ(EngineText(u"SELECT 'a뷁', N'a뷁', N AS 한"_q), u"SELECT 'a뷁', 'a뷁', N AS 한"_q);
}

TEST(EngineText, TablesHaveNoOwner)
{
    EXPECT_EQ(EngineText(u"SELECT 'dbo.a', dbo FROM dbo.a AS P"_q), u"SELECT 'dbo.a', dbo FROM a AS P"_q);
}

TEST(RefuseLongTexts, LooksAtTheColumnsOfAnInsert)
{
    const QString insert = u"Insert INTO SMSLog_2012 (SMSStatus, SMSNo, SendTime,RegDt )  VALUES ("_q;
    EXPECT_EQ(RefusalOf(insert + u"'1','7','2012-05-30 14-07',getdate())"_q), QString());
    EXPECT_EQ(RefusalOf(insert + u"'12','7','2012-05-30 14-07',getdate())"_q), Truncated);
    EXPECT_EQ(RefusalOf(insert + u"'1','7','2012-05-30 14-07x',getdate())"_q), Truncated);
    EXPECT_EQ(RefusalOf(insert + u"Null,7,'2012-05-30 14-07  ',getdate())"_q), QString());
}

TEST(RefuseLongTexts, LooksAtTheColumnsOfAnUpdate)
{
    EXPECT_EQ(RefusalOf(u"UPDATE SMSSetup SET SMSAuto1 ='0', SMSAuto2 ='1'"_q), QString());
    EXPECT_EQ(RefusalOf(u"UPDATE SMSSetup SET SMSAuto1 ='0', SMSAuto2 ='10'"_q), Truncated);
    EXPECT_EQ(RefusalOf(u"UPDATE dbo.SMSSetup SET SMSAuto1 ='10' WHERE SMSID='x'"_q), Truncated);
    EXPECT_EQ(RefusalOf(u"UPDATE SMSSetup SET SMSAuto1 ='0' WHERE SMSAuto1='10'"_q), QString());
}

TEST(RefuseLongTexts, CountsBytes)
{
    const QString update = u"UPDATE SMSSetup SET SMSTelNo='%1'"_q;
    EXPECT_EQ(RefusalOf(update.arg(u"가"_q.repeated(10))), QString());
    EXPECT_EQ(RefusalOf(update.arg(u"가"_q.repeated(10) + u"a"_q)), Truncated);
    EXPECT_EQ(RefusalOf(update.arg(u"''"_q.repeated(20))), QString());
}

TEST(RefuseLongTexts, LeavesTheRestToTheEngine)
{
    EXPECT_EQ(RefusalOf(u"UPDATE Nothing SET a='12345'"_q), QString());
    EXPECT_EQ(RefusalOf(u"INSERT INTO"_q), QString());
    EXPECT_EQ(RefusalOf(u"UPDATE"_q), QString());
    EXPECT_EQ(RefusalOf(u"INSERT INTO SMSSetup (SMSID) SELECT 'a'"_q), QString());
}

} // namespace tsms::test
