#include "support/server/ServerError.h"

#include "store/embedded/EmbeddedConnection.h"
#include "store/engine/DatabaseError.h"
#include "support/database/TestDatabase.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

struct Case
{
    const char16_t* sql;
    int number;
    int severity;
};

} // namespace

TEST(ServerError, TellsWhatTheEngineFailsWith)
{
    const FixedClock clock;
    const TestDatabase database(clock, {2012, 2012});
    EmbeddedConnection connection(clock);
    connection.OpenFile(database.Path());
    connection.Execute(u"INSERT INTO SMSTempLMst (TempLCd) VALUES (1)"_q);
    const Case cases[] = {
        {u"SELECT * FROM SMSLog_1999", 208, 16},
        {u"SELECT Nope FROM SMSSetup", 207, 16},
        {u"UPDATE SMSSetup SET Nope=1", 207, 16},
        {u"SELECT GroupCd FROM SMSGroupMst, SMSGroupSub", 209, 16},
        {u"SELECT FROM", 102, 15},
        {u"SELECT 'abc", 105, 15},
        {u"SELECT Nope(1)", 195, 15},
        {u"SELECT LEFT('a')", 174, 15},
        {u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (1)", 109, 15},
        {u"INSERT INTO SMSTempLMst (TempLCd) VALUES (1)", 2627, 14},
        {u"INSERT INTO SMSLog_2012 (SMSStatus) VALUES (Null)", 515, 16},
        {u"SELECT DATEADD(DAY, 1, 'x')", 241, 16},
        {u"UPDATE SMSSetup SET SMSRemainCnt='x'", 245, 16},
        {u"INSERT INTO SMSCharge (ChargeUnit) VALUES ('1-2')", 235, 16},
        {u"UPDATE SMSSetup SET SMSRemainCnt=2147483648", 8115, 16},
        {u"SELECT CONVERT(varchar(10),getdate(),5)", 281, 16},
        {u"SELECT LEFT('a',-1)", 536, 16},
        {u"CREATE TABLE SMSSetup (a int)", 2714, 16},
        {u"SELECT SMSID FROM SMSSetup ORDER BY SMSID COLLATE Nope", 8630, 17},
    };
    for (const Case& item : cases) {
        const QString sql = QString::fromUtf16(item.sql);
        try {
            connection.Execute(sql);
            ADD_FAILURE() << sql.toStdString();
        } catch (const RuntimeError& error) {
            const ServerError told = ServerErrors(error, sql).first();
            EXPECT_EQ(told.Number, item.number) << sql.toStdString() << ": " << told.Words.toStdString();
            EXPECT_EQ(told.Class, item.severity) << sql.toStdString();
            EXPECT_EQ(told.Words, error.Description);
        }
    }
}

TEST(ServerError, KeepsTheNumberOfANotice)
{
    EXPECT_EQ(ServerErrors(RuntimeError(UserNotice, u"점검"_q), {}),
              (QList<ServerError>{{50000, 16, 1, u"점검"_q}}));
}

TEST(ServerError, OfAnOpenQuoteBeginsWithWhatTheParserMeetsFirst)
{
    const auto words = [](const QString& sql, const QString& end) {
        QStringList list;
        const RuntimeError error(StatementFailure,
                                 u"Unclosed quotation mark after the character string '"_q + end + u"'."_q);
        for (const ServerError& told : ServerErrors(error, sql))
            list += QString::number(told.Number) + u" "_q + told.Words.section(u" '"_q, 1);
        return list;
    };
    EXPECT_EQ(words(u"SELECT 'abc"_q, u"abc"_q), (QStringList{u"105 abc'."_q, u"102 abc'."_q}));
    EXPECT_EQ(words(u"UPDATE a SET b ='O'Brien' WHERE c=1"_q, u" WHERE c=1"_q),
              (QStringList{u"102 Brien'."_q, u"105  WHERE c=1'."_q}));
    EXPECT_EQ(words(u"VALUES ('it's','x')"_q, u")"_q), (QStringList{u"102 s'."_q, u"105 )'."_q}));
    EXPECT_EQ(words(u"UPDATE a SET b ='c' WHERE d='e"_q, u"e"_q), (QStringList{u"105 e'."_q, u"102 e'."_q}));
    EXPECT_EQ(words(u"SELECT [abc"_q, u"abc"_q), (QStringList{u"105 abc'."_q, u"102 abc'."_q}));
}

} // namespace tsms::test
