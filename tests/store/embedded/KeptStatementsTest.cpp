#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/database/TestDatabase.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

class KeptStatements : public ::testing::Test
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
        connection->Execute(
            Statement(u"Insert into SMSGroupMst (GroupNm) values (").InQuotes(name).Own(u")"));
    }

    FixedClock clock;
    TestDatabase database{clock};
    std::unique_ptr<Connection> connection;
};

TEST_F(KeptStatements, ManyRowsOfTheSameWordsAllArrive)
{
    for (int i = 0; i < 100; ++i)
        Insert(u"그룹 %1"_q.arg(i));
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 100);
    EXPECT_EQ(database.Value(u"SELECT GroupNm FROM SMSGroupMst ORDER BY GroupCd DESC"_q), u"그룹 99"_q);
}

TEST_F(KeptStatements, RowsOfTwoStatementsInTurnAllArrive)
{
    for (const QString& name : {u"앞"_q, u"뒤"_q}) {
        Insert(name);
        connection->Execute(
            Statement(u"Insert into SMSGroupSub (GSubNm,GSPhone) values (").InQuotes(name).Own(u",'010')"));
    }
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 2);
    EXPECT_EQ(database.Value(u"SELECT GSubNm FROM SMSGroupSub ORDER BY GSubCd DESC"_q), u"뒤"_q);
}

TEST_F(KeptStatements, AfterAValueThatTheTableRefusesAnotherIsTaken)
{
    const auto insert = [&](const QString& count) {
        connection->Execute(Statement(u"Insert into SMSCharge (ChargeDt,ChargeCnt) values ('2012-05-30',")
                                .Quoted(count)
                                .Own(u")"));
    };
    insert(u"1"_q);
    EXPECT_THROW(insert(u"셋이 아님"_q), RuntimeError);
    insert(u"2"_q);
    EXPECT_EQ(database.Value(u"SELECT SUM(ChargeCnt) FROM SMSCharge"_q), u"3"_q);
}

TEST_F(KeptStatements, AnEmptyLiteralIsAnEmptyTextAndNoNull)
{
    Insert(QString());
    EXPECT_EQ(database.Value(u"SELECT GroupNm IS NULL FROM SMSGroupMst"_q), u"0"_q);
}

TEST_F(KeptStatements, ARefusalLeavesTheNextInsertWorking)
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

TEST_F(KeptStatements, ARunOfRowsIsPreparedOnceWhateverIsNullInThem)
{
    for (int i = 0; i < 100; ++i)
        connection->Execute(Statement(u"Insert into SMSGroupSub (GSubNm,GSPhone) values (")
                                .Quoted(u"이름 %1"_q.arg(i))
                                .Own(u",")
                                .Quoted(i % 2 == 0 ? QString() : u"010"_q)
                                .Own(u")"));
    EXPECT_EQ(database.Value(u"SELECT COUNT(GSPhone) FROM SMSGroupSub"_q), u"50"_q);
    const auto runs = connection->Query(u"SELECT run FROM sqlite_stmt WHERE sql LIKE 'Insert%'"_q);
    ASSERT_EQ(runs->RecordCount(), 1);
    EXPECT_GE(runs->Text(0, 0).toInt(), 100);
}

TEST_F(KeptStatements, ManyStatementsAreNotAllKept)
{
    for (int key = 0; key < 1000; ++key)
        connection->Execute(Statement(u"DELETE FROM SMSGroupSub WHERE GSubCd =").Bare(QString::number(key)));
    const auto kept = connection->Query(u"SELECT sql FROM sqlite_stmt"_q);
    EXPECT_LE(kept->RecordCount(), 10);
}

TEST_F(KeptStatements, AKeptQueryGivesTheFieldsThatItsTableHasByNow)
{
    const auto fields = [&] { return connection->Query(u"SELECT * FROM SMSGroupMst"_q)->FieldCount(); };
    EXPECT_EQ(fields(), 2);
    database.Execute(u"ALTER TABLE SMSGroupMst ADD COLUMN Remark TEXT"_q);
    EXPECT_EQ(fields(), 3);
}

TEST_F(KeptStatements, AValueIsDataWhateverItReminds)
{
    for (const QString& name : {u"a?b"_q, u"a\"b"_q, u"a--b"_q, u"a;b"_q, u"[a]"_q, u"?1"_q, u"$a:b@c"_q}) {
        Insert(name);
        EXPECT_EQ(
            connection->Query(Statement(u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm =").InQuotes(name))
                ->Field(0),
            name);
    }
}

TEST_F(KeptStatements, ALoneApostropheFailsInTheServersWords)
{
    try {
        Insert(u"O'Brien"_q);
        FAIL() << "inserted";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, StatementFailure);
        EXPECT_EQ(error.Description, u"Unclosed quotation mark after the character string ')'."_q);
    }
}

TEST_F(KeptStatements, ClosingLetsItGoSoThatTheFileIsFree)
{
    Insert(u"앞"_q);
    connection->Close();
    connection->Open();
    Insert(u"뒤"_q);
    EXPECT_EQ(database.Count(u"SMSGroupMst"_q), 2);
}

} // namespace
