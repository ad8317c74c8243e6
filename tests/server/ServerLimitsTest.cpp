#include "support/server/ServerLimits.h"

#include "runtime/RuntimeError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace tsms::test {

namespace {

QString Refusal(const QString& sql)
{
    try {
        RefuseWhatTheEngineAloneTakes(sql);
    } catch (const RuntimeError& error) {
        return error.Description;
    }
    return {};
}

QString InsertOf(int rows)
{
    return u"INSERT INTO SMSGroupMst (GroupNm) VALUES "_q + QStringList(rows, u"('가')"_q).join(u", "_q);
}

} // namespace

TEST(ServerLimits, RefuseWordsAndSignsOfTheEngine)
{
    for (const QString& sql : {u"WITH RECURSIVE n(i) AS (SELECT 1) SELECT i FROM n"_q,
                               u"SELECT GroupNm FROM SMSGroupMst LIMIT 1"_q,
                               u"SELECT name FROM sqlite_master"_q, u"PRAGMA journal_mode"_q,
                               u"SELECT 'a' || 'b'"_q, u"SELECT SMSID FROM SMSSetup WHERE SMSID == 'a'"_q})
        EXPECT_TRUE(Refusal(sql).startsWith(u"Incorrect syntax near ")) << sql.toStdString();
}

TEST(ServerLimits, LeaveWordsInQuotesAlone)
{
    EXPECT_EQ(Refusal(u"UPDATE SMSSetup SET SMSOrgNm = 'LIMIT 1 || PRAGMA'"_q), QString());
}

TEST(ServerLimits, RefuseAValueForAGeneratedKey)
{
    EXPECT_EQ(Refusal(u"INSERT INTO SMSGroupMst (GroupCd, GroupNm) VALUES (1, '가')"_q),
              u"Cannot insert explicit value for identity column in table 'SMSGroupMst' when "
              u"IDENTITY_INSERT is set to OFF."_q);
    EXPECT_EQ(Refusal(u"UPDATE SMSLog_2012 SET SMSKey = 7"_q), u"Cannot update identity column 'SMSKey'."_q);
    EXPECT_EQ(Refusal(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (1, '인사')"_q), QString());
    EXPECT_EQ(Refusal(u"INSERT INTO SMSTempLMst VALUES (1, '인사')"_q), QString());
}

TEST(ServerLimits, RefuseMoreThanAThousandRowsOfValues)
{
    EXPECT_EQ(Refusal(InsertOf(1000)), QString());
    EXPECT_TRUE(Refusal(InsertOf(1001)).endsWith(u"maximum allowed number of 1000 row values."));
}

} // namespace tsms::test
