#include "support/server/StatementRights.h"

#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

/// The rights as "SELECT a, UPDATE b".
QString Needed(const QString& sql)
{
    QStringList words;
    for (const TableRight& right : RightsFor(SplitBatch(sql).first()))
        words += right.Action + u' ' + right.Table;
    return words.join(u", "_q);
}

struct Needs
{
    const char16_t* sql;
    const char16_t* rights;
};

class RightsOfAStatement : public ::testing::TestWithParam<Needs>
{
};

} // namespace

TEST_P(RightsOfAStatement, AreThoseToTheTablesThatItTouches)
{
    EXPECT_EQ(Needed(QString::fromUtf16(GetParam().sql)), QString::fromUtf16(GetParam().rights))
        << QString::fromUtf16(GetParam().sql).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Statements, RightsOfAStatement,
    ::testing::Values(
        Needs{u"SELECT 1", u""}, Needs{u"SELECT * FROM SMSSetup", u"SELECT SMSSetup"},
        Needs{u"SELECT * FROM dbo.SMSSetup", u"SELECT SMSSetup"},
        Needs{u"SELECT * FROM [SMSSetup] WHERE SMSID='FROM SMSCharge'", u"SELECT SMSSetup"},
        Needs{u"SELECT a FROM SMSGroupMst AS M, SMSGroupSub AS S WHERE 1=1",
              u"SELECT SMSGroupMst, SELECT SMSGroupSub"},
        Needs{u"SELECT a FROM SMSGroupMst M JOIN SMSGroupSub S ON 1=1",
              u"SELECT SMSGroupMst, SELECT SMSGroupSub"},
        Needs{u"SELECT (SELECT GroupNm FROM SMSGroupMst WHERE GroupCd = P.GroupCd) FROM SMSGroupSub AS P",
              u"SELECT SMSGroupMst, SELECT SMSGroupSub"},
        Needs{u"SELECT a FROM (SELECT SMSID AS a FROM SMSSetup) AS t", u"SELECT SMSSetup"},
        Needs{u"SELECT a FROM b UNION ALL SELECT a FROM c", u"SELECT b, SELECT c"},
        Needs{u"SELECT a FROM b WHERE c IN (SELECT d FROM b)", u"SELECT b"},
        // Values are only written.
        Needs{u"Insert INTO SMSGroupMst (GroupNm) VALUES ('a')", u"INSERT SMSGroupMst"},
        Needs{u"INSERT dbo.SMSGroupMst (GroupNm) VALUES ('a')", u"INSERT SMSGroupMst"},
        Needs{u"INSERT INTO SMSGroupMst (GroupNm) SELECT GSubNm FROM SMSGroupSub",
              u"INSERT SMSGroupMst, SELECT SMSGroupSub"},
        // What is set is not read.
        Needs{u"UPDATE SMSSetup SET SMSID='a', SMSPWD='SMSID'", u"UPDATE SMSSetup"},
        Needs{u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 1", u"UPDATE SMSSetup, SELECT SMSSetup"},
        Needs{u"UPDATE SMSSetup SET SMSID='a', SMSPWD=(SMSID)", u"UPDATE SMSSetup, SELECT SMSSetup"},
        Needs{u"UPDATE dbo.SMSSetup SET SMSID='a' WHERE SMSPWD='b'", u"UPDATE SMSSetup, SELECT SMSSetup"},
        Needs{u"UPDATE SMSSetup SET SMSID='a' WHERE 1=1", u"UPDATE SMSSetup"},
        Needs{u"UPDATE SMSSetup SET SMSID=(SELECT GroupNm FROM SMSGroupMst)",
              u"UPDATE SMSSetup, SELECT SMSGroupMst"},
        Needs{u"DELETE SMSLog_2012 WHERE SMSKey = 1", u"DELETE SMSLog_2012, SELECT SMSLog_2012"},
        Needs{u"DELETE FROM dbo.SMSLog_2012 WHERE SMSKey = 1", u"DELETE SMSLog_2012, SELECT SMSLog_2012"},
        Needs{u"DELETE FROM SMSLog_2012", u"DELETE SMSLog_2012"}, Needs{u"SET a ON", u""},
        Needs{u"UPDATE", u"UPDATE "}));

} // namespace tsms::test
