#include "account/AccountBoxes.h"
#include "account/ChargeRows.h"
#include "account/ModStep3.h"
#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

const QString Query =
    u"SELECT  SMSChargeKey, ChargeDt, ChargeCnt, ChargeAmt, ChargeUnit, Remark, RegDt  FROM "
    u"SMSCharge ORDER BY ChargeDt DESC "_q;

Box NothingSelectedBox()
{
    return {u"충전현황 삭제"_q, u"충전내역 삭제 : 삭제하실 대상을 선택하여 주십시오."_q, MsgBoxCritical};
}

Box DeleteQuestion(const QString& date)
{
    return {u"충전현황 삭제"_q, u"삭제확인 : "_q + date + u"에 등록된 충전내역을 삭제하시겠습니까.?"_q,
            MsgBoxQuestion};
}

Box DeletedBox()
{
    return {u"삭제완료"_q, u"삭제완료 : 정상적으로 문자메시지 충전내역을 삭제 하였습니다."_q,
            MsgBoxInformation};
}

class Ledger : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    void Add(const QString& date, const QString& values)
    {
        program.database.Execute(
            u"INSERT INTO SMSCharge (ChargeDt,ChargeCnt,ChargeAmt,ChargeUnit,Remark,RegDt) "
            u"VALUES ('"_q +
            date + u"',"_q + values + u")"_q);
    }
    /// Keys 1, 2, 3 with 30, 500 and 20 messages; listed in the order 2, 3, 1.
    void AddThree()
    {
        Add(u"2012-03-01"_q, u"30,600,20,'첫 충전','2012-03-01 09:12:00'"_q);
        Add(u"2012-05-20"_q, u"500,10000,20,NULL,'2012-05-20 10:00:01'"_q);
        Add(u"2012-04-15"_q, u"20,400,20,NULL,'2012-04-15 11:30:59'"_q);
    }
    void Enter() { program.Click(u"BtnToolbarDis(2)"_q); }
    fpSpread& Grid() { return program.The<fpSpread>(u"fpSpreadCharge"_q); }
    QStringList Row(int row)
    {
        QStringList cells;
        for (int col = 1; col <= Grid().Cells().MaxCols(); ++col)
            cells += Grid().Cells().Text(col, row);
        return cells;
    }
    QStringList Keys()
    {
        QStringList keys;
        for (int row = 1; row <= Grid().Cells().MaxRows(); ++row)
            keys += Grid().Cells().Text(ChargeKey, row);
        return keys;
    }
    QStringList StoredKeys()
    {
        QStringList keys;
        for (const QStringList& row :
             program.database.Rows(u"SELECT SMSChargeKey FROM SMSCharge ORDER BY 1"_q))
            keys += row.first();
        return keys;
    }
    void SelectRecipientRow(int row) { program.Recipients().SetActiveCell(2, row); }
    void SelectRow(int row) { ClickCell(Grid(), ChargeDate, row); }
    void Delete() { program.Click(u"BtnChargeFunc(1)"_q); }
    /// The database and the session as an operation leaves them.
    void ExpectAtRest()
    {
        EXPECT_FALSE(program.session.Busy);
        EXPECT_EQ(program.connections.OpenNow(), 0);
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
    }

    Program program;
};

using LedgerInSqlServerWords = InSqlServerWords<Ledger>;

TEST(ShownMoment, LeavesPartsOfASecondOut)
{
    EXPECT_EQ(ShownMoment(u"2012-05-30 14:07:09.123"_q), u"2012-05-30 14:07:09"_q);
    EXPECT_EQ(ShownMoment(u"2012-05-30 14:07:09"_q), u"2012-05-30 14:07:09"_q);
    EXPECT_EQ(ShownMoment(QString()), QString());
}

TEST_F(Ledger, ListsTheChargesWithTheLatestFirst)
{
    AddThree();
    Enter();
    EXPECT_EQ(Keys(), (QStringList{u"2"_q, u"3"_q, u"1"_q}));
    EXPECT_EQ(Row(3), (QStringList{u"1"_q, u"2012-03-01"_q, u"30"_q, u"600"_q, u"20"_q, u"첫 충전"_q,
                                   u"2012-03-01 09:12:00"_q}));
    ExpectAtRest();
}

TEST_F(Ledger, TheTimeOfAnEntryIsShownToTheSecond)
{
    Add(u"2012-05-30"_q, u"1,1,1,'12.345','2012-05-30 14:07:09.123'"_q);
    Enter();
    EXPECT_EQ(Row(1).mid(5), (QStringList{u"12.345"_q, u"2012-05-30 14:07:09"_q}));
}

TEST_F(Ledger, ANullIsAnEmptyCell)
{
    Add(u"2012-05-30"_q, u"NULL,NULL,NULL,NULL,NULL"_q);
    Enter();
    EXPECT_EQ(Row(1), (QStringList{u"1"_q, u"2012-05-30"_q, u""_q, u""_q, u""_q, u""_q, u""_q}));
}

TEST_F(Ledger, IsReadBeforeTheMonthsEachOverAConnectionOfItsOwn)
{
    const qsizetype before = program.connections.Statements().size();
    const int connected = program.connections.Connected();
    Enter();
    const QStringList statements = program.connections.Statements().mid(before);
    ASSERT_EQ(statements.size(), 2);
    EXPECT_EQ(statements[0], Query);
    EXPECT_TRUE(statements[1].contains(u"FROM SMSLog_2012"_q));
    EXPECT_EQ(program.connections.Connected(), connected + 2);
    ExpectAtRest();
}

TEST_F(Ledger, IsBusyUnderTheHourglassWhileItIsRead)
{
    QList<bool> busy;
    program.connections.BeforeStatement([&](const QString&) {
        busy += program.session.Busy;
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Hourglass);
    });
    Enter();
    EXPECT_EQ(busy, (QList<bool>{true, true}));
}

TEST_F(Ledger, EachEntryReadsItAnew)
{
    Enter();
    EXPECT_EQ(Grid().Cells().MaxRows(), 0);
    AddThree();
    program.Click(u"BtnToolbarDis(0)"_q);
    Enter();
    EXPECT_EQ(Grid().Cells().MaxRows(), 3);
}

TEST_F(Ledger, AFailedQueryLeavesItEmptyAndTheMonthsAreReadAllTheSame)
{
    AddThree();
    Enter();
    program.Click(u"BtnToolbarDis(0)"_q);
    program.connections.FailStatement(1, StatementFailure, u"Query refused."_q);
    program.desktop.Expect(ErrorBox(u"Query refused."_q));
    Enter();
    EXPECT_EQ(Grid().Cells().MaxRows(), 0);
    EXPECT_EQ(Grid().Cells().Text(ChargeDate, 0), u"충전일시"_q);
    EXPECT_EQ(program.The<fpSpread>(u"fpSpreadMonth"_q).Cells().Text(MonthTotalColumn, MonthSent), u"0"_q);
    ExpectAtRest();
}

TEST_F(LedgerInSqlServerWords, AMissingTableIsToldInTheServersWords)
{
    program.database.Execute(u"DROP TABLE SMSCharge"_q);
    program.desktop.Expect(ErrorBox(u"Invalid object name 'SMSCharge'."_q));
    Enter();
    EXPECT_EQ(Grid().Cells().MaxRows(), 0);
    ExpectAtRest();
}

TEST_F(Ledger, AServerThatIsDownIsToldForEachAttempt)
{
    // Each of the two queries tries twice, and once more, without its rows, when it finds no connection.
    program.connections.RefuseOpens(-1);
    for (int attempt = 0; attempt < 6; ++attempt)
        program.desktop.Expect(ServerDownBox());
    Enter();
    EXPECT_EQ(Grid().Cells().MaxRows(), 0);
    EXPECT_FALSE(program.session.Busy);
}

TEST_F(Ledger, AConnectionThatComesBackTooLateBringsNoRows)
{
    AddThree();
    program.connections.RefuseOpens(2);
    program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(ServerDownBox());
    Enter();
    EXPECT_EQ(Grid().Cells().MaxRows(), 0);
    EXPECT_EQ(program.The<fpSpread>(u"fpSpreadMonth"_q).Cells().Text(MonthTotalColumn, MonthSent), u"0"_q);
    ExpectAtRest();
}

TEST_F(Ledger, ASecondAttemptIsEnough)
{
    AddThree();
    program.connections.RefuseOpens(1);
    program.desktop.Expect(ServerDownBox());
    Enter();
    EXPECT_EQ(Grid().Cells().MaxRows(), 3);
}

TEST_F(Ledger, DeletingFromAnEmptyOneDoesNothing)
{
    Enter();
    const int opens = program.connections.Opens();
    Delete();
    EXPECT_EQ(program.connections.Opens(), opens);
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(Ledger, ADeleteTakesTheActiveRowAndItsCount)
{
    AddThree();
    Enter();
    SelectRow(2);
    program.desktop.Expect(DeleteQuestion(u"2012-04-15"_q), AnswerYes, [this] {
        EXPECT_EQ(program.Balance(), 100);
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    program.desktop.Expect(DeletedBox(), AnswerOK, [this] {
        // The new figures stand before the box.
        EXPECT_EQ(Keys(), (QStringList{u"2"_q, u"1"_q}));
        EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"80건 남았습니다."_q);
        EXPECT_EQ(program.The<Label>(u"lblSMSCnt"_q).Tag, u"80"_q);
    });
    const qsizetype before = program.connections.Statements().size();
    Delete();
    EXPECT_EQ(
        program.connections.Statements().mid(before),
        (QStringList{u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - 20"_q,
                     u"DELETE FROM SMSCharge WHERE SMSChargeKey =3"_q, u"SELECT * FROM SMSSetup"_q, Query}));
    EXPECT_EQ(program.Balance(), 80);
    EXPECT_EQ(StoredKeys(), (QStringList{u"1"_q, u"2"_q}));
    ExpectAtRest();
}

TEST_F(Ledger, AnswerNoLeavesItAsItWas)
{
    AddThree();
    Enter();
    SelectRow(1);
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerNo);
    const int opens = program.connections.Opens();
    Delete();
    EXPECT_EQ(program.connections.Opens(), opens);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(StoredKeys().size(), 3);
}

TEST_F(Ledger, ADeleteAsksForASelectionWhenTheRecipientsActiveRowIsBeyondIt)
{
    AddThree();
    SelectRecipientRow(4);
    Enter();
    SelectRow(1);
    program.desktop.Expect(NothingSelectedBox());
    Delete();
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(StoredKeys().size(), 3);
}

TEST_F(Ledger, ADeleteTakesItsOwnActiveRowWhereTheRecipientsActiveRowHitsAFilledOne)
{
    AddThree();
    SelectRecipientRow(3);
    Enter();
    SelectRow(1);
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerYes);
    program.desktop.Expect(DeletedBox());
    Delete();
    EXPECT_EQ(program.Balance(), -400);
    EXPECT_EQ(StoredKeys(), (QStringList{u"1"_q, u"3"_q}));
}

TEST_F(Ledger, ADeleteMayTakeTheBalanceBelowZero)
{
    AddThree();
    Enter();
    SelectRow(1);
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerYes);
    program.desktop.Expect(DeletedBox());
    Delete();
    EXPECT_EQ(program.Balance(), -400);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"-400건 남았습니다."_q);
}

TEST_F(Ledger, DeletingANegativeCountRaisesTheBalance)
{
    Add(u"2012-05-30"_q, u"-5,NULL,NULL,NULL,NULL"_q);
    Enter();
    program.desktop.Expect(DeleteQuestion(u"2012-05-30"_q), AnswerYes);
    program.desktop.Expect(DeletedBox());
    Delete();
    EXPECT_EQ(program.Balance(), 105);
    EXPECT_EQ(StoredKeys(), QStringList());
}

TEST_F(LedgerInSqlServerWords, ARowWithoutACountCannotBeDeleted)
{
    Add(u"2012-05-30"_q, u"NULL,NULL,NULL,NULL,NULL"_q);
    Enter();
    program.desktop.Expect(DeleteQuestion(u"2012-05-30"_q), AnswerYes);
    program.desktop.Expect(ErrorBox(u"Incorrect syntax near '-'."_q));
    Delete();
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(StoredKeys().size(), 1);
    ExpectAtRest();
}

TEST_F(Ledger, AFailedUpdateMeansNoDelete)
{
    AddThree();
    Enter();
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerYes);
    program.desktop.Expect(ErrorBox(u"Update refused."_q));
    program.connections.FailStatement(1, StatementFailure, u"Update refused."_q);
    Delete();
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(StoredKeys().size(), 3);
    EXPECT_EQ(Grid().Cells().MaxRows(), 3);
    ExpectAtRest();
}

TEST_F(Ledger, AFailedDeleteLeavesTheBalanceLoweredAndTheRowThere)
{
    AddThree();
    Enter();
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerYes);
    program.desktop.Expect(ErrorBox(u"Delete refused."_q));
    program.connections.FailStatement(2, StatementFailure, u"Delete refused."_q);
    Delete();
    EXPECT_EQ(program.Balance(), -400);
    EXPECT_EQ(StoredKeys().size(), 3);
    EXPECT_EQ(Grid().Cells().MaxRows(), 3);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
    ExpectAtRest();
}

TEST_F(Ledger, ABalanceThatCannotBeReadAgainStandsAsItWasAndTheDeleteIsDone)
{
    AddThree();
    Enter();
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerYes);
    program.desktop.Expect(ErrorBox(u"Select refused."_q));
    program.desktop.Expect(DeletedBox());
    program.connections.FailStatement(3, StatementFailure, u"Select refused."_q);
    Delete();
    EXPECT_EQ(program.Balance(), -400);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
    EXPECT_EQ(Keys(), (QStringList{u"3"_q, u"1"_q}));
    ExpectAtRest();
}

TEST_F(Ledger, AListThatCannotBeReadAgainStandsAsItWasAndTheDeleteIsDone)
{
    AddThree();
    Enter();
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerYes);
    program.desktop.Expect(ErrorBox(u"Select refused."_q));
    program.desktop.Expect(DeletedBox());
    program.connections.FailStatement(4, StatementFailure, u"Select refused."_q);
    Delete();
    EXPECT_EQ(StoredKeys().size(), 2);
    EXPECT_EQ(Grid().Cells().MaxRows(), 3);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"-400건 남았습니다."_q);
    ExpectAtRest();
}

TEST_F(Ledger, AServerThatIsDownAtADeleteChangesNothing)
{
    AddThree();
    Enter();
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerYes);
    program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(ServerDownBox());
    program.connections.RefuseOpens(2);
    Delete();
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(StoredKeys().size(), 3);
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(LedgerInSqlServerWords, AnAccountTableThatIsMissingStopsTheDelete)
{
    AddThree();
    Enter();
    program.database.Execute(u"DROP TABLE SMSSetup"_q);
    program.desktop.Expect(DeleteQuestion(u"2012-05-20"_q), AnswerYes);
    program.desktop.Expect(ErrorBox(u"Invalid object name 'SMSSetup'."_q));
    Delete();
    EXPECT_EQ(StoredKeys().size(), 3);
}

TEST_F(Ledger, AnotherRowIsActiveOnceTheLastOneIsGone)
{
    AddThree();
    Enter();
    SelectRow(3);
    program.desktop.Expect(DeleteQuestion(u"2012-03-01"_q), AnswerYes);
    program.desktop.Expect(DeletedBox());
    Delete();
    EXPECT_EQ(Grid().ActiveRow(), 2);
}

TEST_F(Ledger, NoButtonActsWhileBusy)
{
    AddThree();
    Enter();
    program.session.Busy = true;
    program.Click(u"BtnChargeFunc(0)"_q);
    Delete();
    program.session.Busy = false;
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
    EXPECT_EQ(Form::Find(u"dlgSMSCharge"_q), nullptr);
}

} // namespace
