#include "account/ChargeStatements.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

const QString InsertHead =
    u"Insert INTO SMSCharge  (ChargeDt, ChargeCnt, ChargeAmt,ChargeUnit,Remark,RegDt )  VALUES ("_q;

TEST(ChargeQuery, ListsTheLedgerWithTheLatestDateFirst)
{
    EXPECT_EQ(
        ChargeQuery().Text(),
        u"SELECT  SMSChargeKey, ChargeDt, ChargeCnt, ChargeAmt, ChargeUnit, Remark, RegDt  FROM SMSCharge ORDER BY ChargeDt DESC "_q);
    EXPECT_EQ(ChargeQuery().Fault(), QString());
}

struct InsertRow
{
    ChargeEntry entry;
    QString values;
};

class ChargeInserts : public ::testing::TestWithParam<InsertRow>
{
};

TEST_P(ChargeInserts, AreWrittenToTheLetterAndMayBeSent)
{
    const Statement insert = ChargeInsert(GetParam().entry);
    EXPECT_EQ(insert.Text(), InsertHead + GetParam().values);
    EXPECT_EQ(insert.Fault(), QString());
}

INSTANTIATE_TEST_SUITE_P(
    Entries, ChargeInserts,
    ::testing::Values(InsertRow{{u"2012-05-30"_q, u"1000"_q, u"20000"_q, u"20"_q, u"첫 충전"_q},
                                u"'2012-05-30',1000,20000,'20','첫 충전',getdate())"_q},
                      InsertRow{{u"2012-05-30"_q, u"-5"_q, u"0"_q, u"9.9"_q, u" 바로잡음 "_q},
                                u"'2012-05-30',-5,0,'9.9','바로잡음',getdate())"_q},
                      // What the dialog never lets through is written all the same.
                      InsertRow{{u"2012-05-30"_q, {}, {}, u" "_q, QString()},
                                u"'2012-05-30',Null,Null,Null,Null,getdate())"_q},
                      InsertRow{{u"2012-05-30"_q, u"1"_q, u"1-2"_q, u"1-2"_q, u"첫째\r\n둘째"_q},
                                u"'2012-05-30',1,1-2,'1-2','첫째\r\n둘째',getdate())"_q}));

struct RefusedRow
{
    ChargeEntry entry;
    QString words;
};

class RefusedInserts : public ::testing::TestWithParam<RefusedRow>
{
};

TEST_P(RefusedInserts, AreNeverSent)
{
    EXPECT_EQ(ChargeInsert(GetParam().entry).Fault(), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Entries, RefusedInserts,
    ::testing::Values(
        RefusedRow{{u"2012-05-30"_q, u"1,0"_q, u"0"_q, u"1"_q, u"a"_q}, u"Incorrect syntax near ','."_q},
        RefusedRow{{u"2012-05-30"_q, u"1"_q, u"1--2"_q, u"1"_q, u"a"_q}, u"Incorrect syntax near '--'."_q},
        RefusedRow{{u"2012-05-30"_q, u"1"_q, u"/"_q, u"1"_q, u"a"_q}, u"Incorrect syntax near '/'."_q},
        RefusedRow{{u"2012-05-30"_q, u"1"_q, u"2"_q, u"3"_q, u"a'b'c"_q}, u"Incorrect syntax near 'b'."_q},
        RefusedRow{{u"2012-05-30"_q, u"1"_q, u"2"_q, u"3"_q, u"','x',getdate()); DROP TABLE SMSCharge --"_q},
                   u"Incorrect syntax near '--'."_q}));

TEST(ChargeDelete, TakesOneRowByItsKey)
{
    EXPECT_EQ(ChargeDelete(u"17"_q).Text(), u"DELETE FROM SMSCharge WHERE SMSChargeKey =17"_q);
    EXPECT_EQ(ChargeDelete(u"17"_q).Fault(), QString());
    EXPECT_NE(ChargeDelete(u"17 OR 1=1"_q).Fault(), QString());
}

struct BalanceRow
{
    QString count;
    QString plus;
    QString minus;
};

class Balances : public ::testing::TestWithParam<BalanceRow>
{
};

TEST_P(Balances, MoveByARelativeStatement)
{
    EXPECT_EQ(BalancePlus(GetParam().count).Text(), GetParam().plus);
    EXPECT_EQ(BalanceMinus(GetParam().count).Text(), GetParam().minus);
    EXPECT_EQ(BalancePlus(GetParam().count).Fault(), QString());
    EXPECT_EQ(BalanceMinus(GetParam().count).Fault(), QString());
}

INSTANTIATE_TEST_SUITE_P(
    Counts, Balances,
    ::testing::Values(BalanceRow{u"1000"_q, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1000"_q,
                                 u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 1000"_q},
                      BalanceRow{u"-5"_q, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + -5"_q,
                                 u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - -5"_q},
                      BalanceRow{u"0"_q, u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 0"_q,
                                 u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 0"_q},
                      // A row without a count: the server refuses what breaks off.
                      BalanceRow{QString(), u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + "_q,
                                 u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - "_q}));

} // namespace
