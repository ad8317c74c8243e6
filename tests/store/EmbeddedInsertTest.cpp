#include "store/embedded/EmbeddedInsert.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/database/TestDatabase.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(LiftLiterals, EachLiteralBecomesAMark)
{
    const auto lifted = LiftLiterals(u"Insert INTO t (a,b) VALUES ('가',Null,'', 7,'it''s',getdate())"_q);
    ASSERT_TRUE(lifted);
    EXPECT_EQ(lifted->shape, u"Insert INTO t (a,b) VALUES (?,Null,?, 7,?,getdate())"_q);
    EXPECT_EQ(lifted->literals, (QByteArrayList{"가", "", "it's"}));
}

TEST(LiftLiterals, OneSignOfACommentMakesNone)
{
    const auto lifted = LiftLiterals(u"Insert INTO t VALUES ('x',-5,4/2,2*3)"_q);
    ASSERT_TRUE(lifted);
    EXPECT_EQ(lifted->shape, u"Insert INTO t VALUES (?,-5,4/2,2*3)"_q);
}

TEST(LiftLiterals, OnlyAPlainInsertIsLifted)
{
    for (const char16_t* sql :
         {u"UPDATE t SET a='x'", u"SELECT 'x'", u"DELETE FROM t", u"Insert INTO t VALUES ('x",
          u"Insert INTO t VALUES ('x') -- c", u"Insert INTO t VALUES (/* ' */ 'x')",
          u"Insert INTO \"t\" VALUES ('x')", u"Insert INTO t VALUES ('x'); DELETE FROM t",
          u"Insert INTO t VALUES (?)", u"Insert INTO t VALUES ('x' + 'y')", u"Insert INTO [t] VALUES ('x')"})
        EXPECT_FALSE(LiftLiterals(QString::fromUtf16(sql))) << QString::fromUtf16(sql).toStdString();
}

TEST(LiftLiterals, WhatStandsInsideALiteralDoesNotMatter)
{
    const auto lifted = LiftLiterals(u"insert into t values ('a;b--c\"d?e/*f+[')"_q);
    ASSERT_TRUE(lifted);
    EXPECT_EQ(lifted->literals, (QByteArrayList{"a;b--c\"d?e/*f+["}));
}

class KeptInsert : public ::testing::Test
{
protected:
    void SetUp() override
    {
        connection = database.Connections()();
        connection->ConnectionString =
            u"Initial Catalog="_q + database.Path() + u";Data Source=(embedded),0"_q;
        connection->CommandTimeout = 5;
        connection->Open();
    }
    void Insert(const QString& name)
    {
        connection->Execute(u"Insert into SMSGroupMst (GroupNm) values ('"_q + name + u"')"_q);
    }

    FixedClock clock;
    TestDatabase database{clock};
    std::unique_ptr<Connection> connection;
};

TEST_F(KeptInsert, ManyRowsOfOneShapeAllArrive)
{
    for (int i = 0; i < 100; ++i)
        Insert(u"그룹 %1"_q.arg(i));
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 100);
    EXPECT_EQ(database.Value(u"SELECT GroupNm FROM SMSGroupMst ORDER BY GroupCd DESC"_q), u"그룹 99"_q);
}

TEST_F(KeptInsert, RowsOfTwoShapesInTurnAllArrive)
{
    for (const QString& name : {u"앞"_q, u"뒤"_q}) {
        Insert(name);
        connection->Execute(u"Insert into SMSGroupSub (GSubNm,GSPhone) values ('"_q + name + u"','010')"_q);
    }
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 2);
    EXPECT_EQ(database.Value(u"SELECT GSubNm FROM SMSGroupSub ORDER BY GSubCd DESC"_q), u"뒤"_q);
}

TEST_F(KeptInsert, AfterAValueThatTheTableRefusesAnotherIsTaken)
{
    const auto insert = [&](const QString& count) {
        connection->Execute(u"Insert into SMSCharge (ChargeDt,ChargeCnt) values ('2012-05-30','"_q + count +
                            u"')"_q);
    };
    insert(u"1"_q);
    EXPECT_THROW(insert(u"셋이 아님"_q), RuntimeError);
    insert(u"2"_q);
    EXPECT_EQ(database.Value(u"SELECT SUM(ChargeCnt) FROM SMSCharge"_q), u"3"_q);
}

TEST_F(KeptInsert, AnEmptyLiteralIsAnEmptyTextAndNoNull)
{
    Insert(QString());
    EXPECT_EQ(database.Value(u"SELECT GroupNm IS NULL FROM SMSGroupMst"_q), u"0"_q);
}

TEST_F(KeptInsert, ARefusalLeavesTheNextInsertWorking)
{
    Insert(u"앞"_q);
    database.Execute(u"ALTER TABLE SMSGroupMst RENAME TO Away"_q);
    try {
        Insert(u"사이"_q);
        FAIL() << "inserted into nothing";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, NoSuchTable);
    }
    database.Execute(u"ALTER TABLE Away RENAME TO SMSGroupMst"_q);
    Insert(u"뒤"_q);
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 2);
}

TEST_F(KeptInsert, ClosingLetsItGoSoThatTheFileIsFree)
{
    Insert(u"앞"_q);
    connection->Close();
    connection->Open();
    Insert(u"뒤"_q);
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 2);
}

} // namespace
