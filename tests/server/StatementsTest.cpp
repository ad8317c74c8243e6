#include "server/ServerFixture.h"

#include <sql.h>
#include <sqlext.h>

namespace tsms::test {

namespace {

using Column = OdbcClient::Column;

class Statements : public ServerFixture
{
protected:
    Statements() { Connect(); }

    QList<Column> ColumnsOf(const QString& sql)
    {
        Run(sql);
        return client_.Columns();
    }

    void ExpectError(const QString& sql, int number, const QString& words)
    {
        EXPECT_FALSE(client_.Execute(sql)) << sql.toStdString();
        EXPECT_EQ(client_.First().Number, number) << sql.toStdString();
        EXPECT_TRUE(client_.First().Words.endsWith(words)) << client_.First().Words.toStdString();
    }
};

} // namespace

// Types and values, as the driver understands them

TEST_F(Statements, ColumnsOfATableHaveItsTypes)
{
    EXPECT_EQ(ColumnsOf(u"SELECT SMSChargeKey, ChargeDt, ChargeCnt, ChargeAmt, RegDt FROM SMSCharge"_q),
              (QList<Column>{{u"SMSChargeKey"_q, SQL_INTEGER, 10, 0, false, true},
                             {u"ChargeDt"_q, SQL_VARCHAR, 10, 0, true, false},
                             {u"ChargeCnt"_q, SQL_INTEGER, 10, 0, true, false},
                             {u"ChargeAmt"_q, SQL_DECIMAL, 19, 4, true, false},
                             {u"RegDt"_q, SQL_TYPE_TIMESTAMP, 23, 3, true, false}}));
}

TEST_F(Statements, ExpressionsHaveTheTypesThatTheServerGivesThem)
{
    EXPECT_EQ(ColumnsOf(u"SELECT COUNT(*), 1.25, 'ab', N'한', LEFT(SMSID, 10) AS Part, getdate() FROM "
                        u"SMSSetup GROUP BY SMSID"_q),
              (QList<Column>{{QString(), SQL_INTEGER, 10, 0, true, false},
                             {QString(), SQL_NUMERIC, 3, 2, false, false},
                             {QString(), SQL_VARCHAR, 2, 0, false, false},
                             {QString(), SQL_WVARCHAR, 1, 0, false, false},
                             {u"Part"_q, SQL_VARCHAR, 10, 0, true, false},
                             {QString(), SQL_TYPE_TIMESTAMP, 23, 3, false, false}}));
}

TEST_F(Statements, IntegersArriveWithTheirSigns)
{
    Run(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 2147483648"_q);
    EXPECT_EQ(Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"-2147483648"_q);
    EXPECT_EQ(Value(u"SELECT 2147483647"_q), u"2147483647"_q);
}

TEST_F(Statements, DecimalsArriveWithTheirPlaces)
{
    EXPECT_EQ(Rows(u"SELECT 1.25, -0.5, 1234567890123456"_q).value(0),
              (QStringList{u"1.25"_q, u"-0.5"_q, u"1234567890123456"_q}));
}

TEST_F(Statements, AmountsArriveWithFourPlaces)
{
    Run(u"Insert INTO SMSCharge (ChargeAmt, ChargeUnit) VALUES (1000000, '1,234')"_q);
    Run(u"Insert INTO SMSCharge (ChargeAmt, ChargeUnit) VALUES (-0.25, Null)"_q);
    EXPECT_EQ(Rows(u"SELECT ChargeAmt, ChargeUnit FROM SMSCharge ORDER BY SMSChargeKey"_q),
              (QList<QStringList>{{u"1000000.0000"_q, u"1234.0000"_q}, {u"-0.2500"_q, u"(null)"_q}}));
}

TEST_F(Statements, MomentsArriveToTheSecond)
{
    EXPECT_EQ(Value(u"SELECT getdate()"_q), u"2012-05-30 14:07:09.000"_q);
    EXPECT_EQ(Value(u"SELECT DATEADD(DAY, -1, '2012-03-01')"_q), u"2012-02-29 00:00:00.000"_q);
}

TEST_F(Statements, TextsArriveInTheirLanguage)
{
    Run(u"UPDATE SMSSetup SET SMSOrgNm='한빛교회 뷁 ABC'"_q);
    EXPECT_EQ(Value(u"SELECT SMSOrgNm FROM SMSSetup"_q), u"한빛교회 뷁 ABC"_q);
    EXPECT_EQ(Value(u"SELECT N'한글 뷁'"_q), u"한글 뷁"_q);
}

TEST_F(Statements, ALiteralKeepsWhatItsCodePageHas)
{
    Run(u"UPDATE SMSSetup SET SMSOrgNm='a😀ø한'"_q);
    EXPECT_EQ(database_.Value(u"SELECT SMSOrgNm FROM SMSSetup"_q), u"a??ø한"_q);
}

TEST_F(Statements, EmptyTextsAndNullsAreDifferent)
{
    Run(u"UPDATE SMSSetup SET SMSID='', SMSPWD=Null, SMSRemainCnt=Null"_q);
    EXPECT_EQ(Rows(u"SELECT SMSID, SMSPWD, SMSRemainCnt FROM SMSSetup"_q),
              (QList<QStringList>{{QString(), u"(null)"_q, u"(null)"_q}}));
}

TEST_F(Statements, AResultWithoutRowsHasItsColumns)
{
    EXPECT_EQ(Rows(u"SELECT GroupCd, GroupNm FROM SMSGroupMst"_q), QList<QStringList>());
    EXPECT_EQ(client_.Columns().size(), 2);
}

TEST_F(Statements, AllColumnsAreAskedForByAStar)
{
    EXPECT_EQ(ColumnsOf(u"SELECT * FROM SMSSetup"_q).size(), 10);
    EXPECT_EQ(client_.Rows().value(0).value(7), u"0"_q);
}

// Messages of many packets

TEST_F(Statements, LongOnesArriveWhole)
{
    const QString words = u"가나다라"_q.repeated(250);
    QString insert = u"INSERT INTO SMSTempLSub (TempLCd, TempLContent) VALUES "_q;
    for (int row = 0; row < 20; ++row)
        insert += (row == 0 ? u"("_q : u",("_q) + QString::number(row) + u",'"_q + words + u"')"_q;
    Run(insert);
    EXPECT_EQ(client_.RowCount(), 20);
    EXPECT_EQ(database_.Value(u"SELECT COUNT(*) FROM SMSTempLSub WHERE TempLContent = '"_q + words + u"'"_q),
              u"20"_q);
}

TEST_F(Statements, LongAnswersArriveWholeInPacketsOfAnySize)
{
    for (int row = 0; row < 300; ++row)
        database_.Execute(u"INSERT INTO SMSTempLSub (TempLCd, TempLContent) VALUES (1, '%1')"_q.arg(
            u"가나다라마바사"_q.repeated(row % 100)));
    for (const int size : {4096, 5000, 8192, 16384}) {
        OdbcClient client;
        ASSERT_TRUE(client.Connect(server_, u"PacketSize=%1;"_q.arg(size)));
        EXPECT_EQ(server_.LogIns().last().PacketSize, size);
        ASSERT_TRUE(client.Execute(u"SELECT TempLContent FROM SMSTempLSub ORDER BY TempLSeq"_q));
        const QList<QStringList> rows = client.Rows();
        ASSERT_EQ(rows.size(), 300) << size;
        for (int row = 0; row < 300; ++row)
            ASSERT_EQ(rows[row].first(), u"가나다라마바사"_q.repeated(row % 100)) << size << " " << row;
    }
}

// Counts

TEST_F(Statements, TellHowManyRowsTheyTouched)
{
    Run(u"Insert into SMSGroupMst (GroupNm) values ('가'),('나'),('다')"_q);
    EXPECT_EQ(client_.RowCount(), 3);
    Run(u"UPDATE SMSGroupMst set GroupNm='라' WHERE GroupCd > 1"_q);
    EXPECT_EQ(client_.RowCount(), 2);
    Run(u"DELETE FROM SMSGroupMst WHERE GroupCd =1"_q);
    EXPECT_EQ(client_.RowCount(), 1);
    client_.Execute(u"DELETE FROM SMSGroupMst WHERE GroupCd =99"_q);
    EXPECT_EQ(client_.RowCount(), 0);
    EXPECT_EQ(client_.First().Number, 0) << client_.First().Words.toStdString();
}

// Batches

TEST_F(Statements, SeveralInABatchAreAllExecuted)
{
    Run(u"SELECT 1; UPDATE SMSSetup SET SMSRemainCnt=5 SELECT SMSRemainCnt FROM SMSSetup"_q);
    EXPECT_EQ(client_.Rows(), (QList<QStringList>{{u"1"_q}}));
    ASSERT_TRUE(client_.NextResult());
    EXPECT_EQ(client_.RowCount(), 1);
    ASSERT_TRUE(client_.NextResult());
    EXPECT_EQ(client_.Rows(), (QList<QStringList>{{u"5"_q}}));
    EXPECT_FALSE(client_.NextResult());
}

TEST_F(Statements, ASyntaxErrorKeepsItsBatchFromRunning)
{
    ExpectError(u"UPDATE SMSSetup SET SMSRemainCnt=5; DELETE FROM WHERE"_q, 102,
                u"Incorrect syntax near 'WHERE'."_q);
    EXPECT_EQ(Balance(), u"0"_q);
}

TEST_F(Statements, AnErrorLeavesWhatWasDoneBefore)
{
    Run(u"UPDATE SMSSetup SET SMSRemainCnt=5; DELETE FROM SMSLog_1999"_q);
    EXPECT_FALSE(client_.NextResult());
    EXPECT_EQ(client_.First().Number, 208);
    EXPECT_EQ(Balance(), u"5"_q);
}

TEST_F(Statements, ThatSetUpTheConnectionAreNotCounted)
{
    client_.Execute(u"SET ANSI_NULLS ON SET QUOTED_IDENTIFIER ON"_q);
    EXPECT_EQ(client_.First().Number, 0) << client_.First().Words.toStdString();
    client_.Execute(u"USE [tsms]"_q);
    EXPECT_EQ(client_.Database(), u"TSMS"_q);
    Run(u"SELECT 1"_q);
    EXPECT_EQ(server_.Statements(), QStringList{u"SELECT 1"_q});
}

TEST_F(Statements, ADatabaseThatIsNotThereIsRefused)
{
    ExpectError(u"USE Nowhere"_q, 911,
                u"Database 'Nowhere' does not exist. Make sure that the name is entered correctly."_q);
}

// Errors

TEST_F(Statements, ErrorsHaveTheServersNumbersAndWords)
{
    Run(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (1, '안내')"_q);
    ExpectError(u"SELECT * FROM SMSLog_1999"_q, 208, u"Invalid object name 'SMSLog_1999'."_q);
    ExpectError(u"SELECT Nope FROM SMSSetup"_q, 207, u"Invalid column name 'Nope'."_q);
    ExpectError(u"DELETE SMSTempLSub WHERE TempLSeq = "_q, 102, u"Incorrect syntax near '='."_q);
    ExpectError(u"INSERT INTO SMSTempLMst (TempLCd, TempLNm) VALUES (1, '인사')"_q, 2627,
                u"Cannot insert duplicate key in object 'SMSTempLMst'."_q);
    ExpectError(u"Insert INTO SMSLog_2012 (SMSStatus) VALUES (Null)"_q, 515,
                u"column does not allow nulls."_q);
    ExpectError(u"SELECT DATEADD(DAY, 1, 'x')"_q, 241,
                u"Conversion failed when converting date and/or time from character string."_q);
    ExpectError(u"INSERT INTO SMSGroupMst (GroupCd, GroupNm) VALUES (1, '가')"_q, 544,
                u"when IDENTITY_INSERT is set to OFF."_q);
    ExpectError(u"UPDATE SMSSetup SET SMSRemainCnt= 2147483648"_q, 8115,
                u"Arithmetic overflow error converting expression to data type int."_q);
}

TEST_F(Statements, AnUnclosedQuoteIsToldInTwoErrors)
{
    EXPECT_FALSE(client_.Execute(u"UPDATE SMSSetup SET SMSID ='O'Brien'"_q));
    ASSERT_EQ(client_.Diagnostics().size(), 2);
    EXPECT_EQ(client_.Diagnostics()[0].Number, 102);
    EXPECT_TRUE(client_.Diagnostics()[0].Words.endsWith(u"Incorrect syntax near 'Brien'."));
    EXPECT_EQ(client_.Diagnostics()[1].Number, 105);
    EXPECT_TRUE(
        client_.Diagnostics()[1].Words.endsWith(u"Unclosed quotation mark after the character string ''."));
    EXPECT_EQ(database_.Value(u"SELECT SMSID FROM SMSSetup"_q), QString());
}

TEST_F(Statements, ATextThatIsTooWideIsRefused)
{
    ExpectError(u"UPDATE SMSSetup SET SMSTelNo='123456789012345678901'"_q, 8152,
                u"String or binary data would be truncated."_q);
    Run(u"UPDATE SMSSetup SET SMSTelNo='가나다라마바사아자차   '"_q);
}

TEST_F(Statements, AnErrorLeavesTheConnectionUsable)
{
    EXPECT_FALSE(client_.Execute(u"SELECT * FROM SMSLog_1999"_q));
    EXPECT_EQ(Value(u"SELECT COUNT(*) FROM SMSSetup"_q), u"1"_q);
}

TEST_F(Statements, AnEmptiedTableBeginsItsKeysAnew)
{
    Run(u"Insert into SMSGroupMst (GroupNm) values ('가'),('나')"_q);
    Run(u"TRUNCATE TABLE dbo.SMSGroupMst"_q);
    Run(u"Insert into SMSGroupMst (GroupNm) values ('다')"_q);
    EXPECT_EQ(Rows(u"SELECT GroupCd, GroupNm FROM SMSGroupMst"_q), (QList<QStringList>{{u"1"_q, u"다"_q}}));
    ExpectError(u"TRUNCATE TABLE dbo.SMSLog_1999"_q, 4701,
                u"Cannot find the object \"SMSLog_1999\" because it does not exist or you do not have "
                u"permissions."_q);
}

TEST_F(Statements, TheServerTellsWhoseWordsItUsesAndInWhichLanguage)
{
    EXPECT_EQ(Rows(u"SELECT @@VERSION, @@LANGUAGE"_q),
              (QList<QStringList>{{u"Microsoft SQL Server, as the tests imitate it"_q, u"us_english"_q}}));
}

TEST_F(Statements, CallsOfProceduresAreAnsweredByAnError)
{
    ExpectError(u"{call sp_nothing}"_q, 2812, u"Could not find stored procedure."_q);
}

} // namespace tsms::test
