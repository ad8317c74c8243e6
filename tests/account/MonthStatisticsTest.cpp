#include "account/AccountBoxes.h"
#include "account/ModStep3.h"
#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/Program.h"
#include "toolkit/fields/ComboBox.h"

#include <gtest/gtest.h>

#include <QHeaderView>

using namespace tsms;
using namespace tsms::test;

namespace {

class MonthStatistics : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    void Log(const QString& time, const QString& status, int count = 1)
    {
        for (int i = 0; i < count; ++i)
            program.database.Execute(u"INSERT INTO SMSLog_%1 (SMSStatus,SendTime) VALUES ('%2','%3')"_q.arg(
                time.left(4), status, time));
    }
    void Enter() { program.Click(u"BtnToolbarDis(2)"_q); }
    ComboBox& Years() { return program.The<ComboBox>(u"CbMonthYear"_q); }
    /// Chooses an entry of the list by keys, as a person does.
    void Choose(Qt::Key key)
    {
        Years().setFocus();
        PressKey(Years(), key);
    }
    fpSpread& Grid() { return program.The<fpSpread>(u"fpSpreadMonth"_q); }
    /// The four cells of a column, from the top.
    QStringList Column(int col)
    {
        QStringList cells;
        for (int row = MonthSent; row <= MonthRate; ++row)
            cells += Grid().Cells().Text(col, row);
        return cells;
    }
    int FilledColumns()
    {
        int filled = 0;
        for (int col = 1; col <= MonthTotalColumn; ++col)
            filled += Column(col).join(QString()).isEmpty() ? 0 : 1;
        return filled;
    }
    void ExpectAtRest()
    {
        EXPECT_FALSE(program.session.Busy);
        EXPECT_EQ(program.connections.OpenNow(), 0);
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
    }

    Program program;
};

using MonthStatisticsInSqlServerWords = InSqlServerWords<MonthStatistics>;

const QStringList Nothing{u""_q, u""_q, u""_q, u""_q};

TEST_F(MonthStatistics, CountsEachMonthOfTheYear)
{
    Log(u"2012-01-05 10-00"_q, u"1"_q, 3);
    Log(u"2012-01-31 23-59"_q, u"2"_q, 1);
    Log(u"2012-12-24-18-05"_q, u"1"_q, 2);
    Enter();
    EXPECT_EQ(Column(1), (QStringList{u"4"_q, u"3"_q, u"1"_q, u"75%"_q}));
    EXPECT_EQ(Column(12), (QStringList{u"2"_q, u"2"_q, u"0"_q, u"100%"_q}));
    ExpectAtRest();
}

TEST_F(MonthStatistics, AMonthWithoutMessagesKeepsEmptyCells)
{
    Log(u"2012-05-05 10-00"_q, u"1"_q);
    Enter();
    EXPECT_EQ(Column(4), Nothing);
    EXPECT_EQ(Column(6), Nothing);
    EXPECT_EQ(FilledColumns(), 2);
}

TEST_F(MonthStatistics, AMonthOfFailuresHasTheSignAlone)
{
    Log(u"2012-05-05 10-00"_q, u"2"_q, 2);
    Enter();
    EXPECT_EQ(Column(5), (QStringList{u"2"_q, u"0"_q, u"2"_q, u"%"_q}));
}

TEST_F(MonthStatistics, WhatIsReservedCountsAsDoneInTheMonthOfItsTime)
{
    Log(u"2012-11-01-09-00"_q, u"0"_q, 2);
    Log(u"2012-11-01 09-00"_q, u"2"_q, 1);
    Enter();
    EXPECT_EQ(Column(11), (QStringList{u"3"_q, u"2"_q, u"1"_q, u"67%"_q}));
}

TEST_F(MonthStatistics, AnotherStatusIsCountedAndNeitherDoneNorFailed)
{
    Log(u"2012-05-05 10-00"_q, u"1"_q, 1);
    Log(u"2012-05-05 10-00"_q, u"9"_q, 3);
    Enter();
    EXPECT_EQ(Column(5), (QStringList{u"4"_q, u"1"_q, u"0"_q, u"25%"_q}));
}

TEST_F(MonthStatistics, TheTotalOfEveryRowIsThatOfTheFirst)
{
    Log(u"2012-01-05 10-00"_q, u"1"_q, 3);
    Log(u"2012-02-05 10-00"_q, u"2"_q, 2);
    Enter();
    EXPECT_EQ(Column(MonthTotalColumn), (QStringList{u"5"_q, u"5"_q, u"5"_q, u"5"_q}));
}

TEST_F(MonthStatistics, AnEmptyLogHasATotalOfZeroAndNoMonths)
{
    Enter();
    EXPECT_EQ(Column(MonthTotalColumn), (QStringList{u"0"_q, u"0"_q, u"0"_q, u"0"_q}));
    EXPECT_EQ(FilledColumns(), 1);
    ExpectAtRest();
}

TEST_F(MonthStatistics, ATimeWithoutAMonthEndsInTheServersBoxAndTheMonthsBeforeItStand)
{
    Log(u"2012-01-05 10-00"_q, u"1"_q, 3);
    program.database.Execute(u"INSERT INTO SMSLog_2012 (SMSStatus,SendTime) VALUES ('1','zzzz-zz')"_q);
    program.desktop.Expect(ErrorBox(RuntimeError(TypeMismatch).Description));
    Enter();
    EXPECT_EQ(Column(1), (QStringList{u"3"_q, u"3"_q, u"0"_q, u"100%"_q}));
    EXPECT_EQ(Column(MonthTotalColumn), Nothing);
    ExpectAtRest();
}

TEST_F(MonthStatistics, AMonthBeyondTheTwelfthIsOverwrittenByTheTotal)
{
    Log(u"2012-13-05 10-00"_q, u"1"_q, 3);
    Enter();
    EXPECT_EQ(Column(MonthTotalColumn), (QStringList{u"0"_q, u"0"_q, u"0"_q, u"0"_q}));
}

TEST_F(MonthStatistics, ChoosingAYearShowsItsLogAndLeavesTheLedgerAlone)
{
    Log(u"2012-01-05 10-00"_q, u"1"_q, 3);
    Log(u"2011-07-05 10-00"_q, u"2"_q, 1);
    Enter();
    const qsizetype before = program.connections.Statements().size();
    Choose(Qt::Key_Up);
    EXPECT_EQ(Years().Text(), u"2011년"_q);
    EXPECT_EQ(Column(1), Nothing);
    EXPECT_EQ(Column(7), (QStringList{u"1"_q, u"0"_q, u"1"_q, u"%"_q}));
    ASSERT_EQ(program.connections.Statements().size(), before + 1);
    EXPECT_TRUE(program.connections.Statements().last().contains(u" FROM SMSLog_2011 GROUP BY"_q));
    ExpectAtRest();
}

TEST_F(MonthStatistics, TheYearStaysChosenAtTheNextEntry)
{
    Log(u"2011-07-05 10-00"_q, u"1"_q, 1);
    Enter();
    Choose(Qt::Key_Up);
    program.Click(u"BtnToolbarDis(0)"_q);
    Enter();
    EXPECT_EQ(Column(7), (QStringList{u"1"_q, u"1"_q, u"0"_q, u"100%"_q}));
}

TEST_F(MonthStatistics, ChoosingWhileBusyChangesNoFigure)
{
    Log(u"2012-01-05 10-00"_q, u"1"_q, 3);
    Enter();
    const int opens = program.connections.Opens();
    program.session.Busy = true;
    Choose(Qt::Key_Up);
    program.session.Busy = false;
    EXPECT_EQ(Column(1).first(), u"3"_q);
    EXPECT_EQ(program.connections.Opens(), opens);
}

TEST_F(MonthStatistics, ThePresentYearIsCountedWithoutTheWindowAsking)
{
    // The list is filled at the load of the window, which is busy then.
    EXPECT_EQ(Years().Text(), u"2012년"_q);
    for (const QString& statement : program.connections.Statements())
        EXPECT_FALSE(statement.contains(u"SMSLog_"_q)) << statement.toStdString();
}

TEST_F(MonthStatisticsInSqlServerWords, AYearWithoutALogLeavesTheTitlesAndNoFigures)
{
    Log(u"2012-01-05 10-00"_q, u"1"_q, 3);
    program.database.Execute(u"DROP TABLE SMSLog_2011"_q);
    Enter();
    program.desktop.Expect(ErrorBox(u"Invalid object name 'SMSLog_2011'."_q));
    Choose(Qt::Key_Up);
    EXPECT_EQ(FilledColumns(), 0);
    EXPECT_EQ(Grid().Cells().Text(1, 0), u"1월"_q);
    EXPECT_EQ(Grid().Cells().Text(0, MonthRate), u"수신율"_q);
    ExpectAtRest();
}

TEST_F(MonthStatistics, AServerThatIsDownLeavesNoFigures)
{
    Log(u"2012-01-05 10-00"_q, u"1"_q, 3);
    Enter();
    program.connections.RefuseOpens(2);
    program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(ServerDownBox());
    Choose(Qt::Key_Up);
    EXPECT_EQ(FilledColumns(), 0);
    ExpectAtRest();
}

TEST_F(MonthStatistics, TheFailureOfTheQueryIsToldOnce)
{
    Enter();
    program.connections.FailStatement(1, CommandTimedOut, u"Timeout expired"_q);
    program.desktop.Expect(ErrorBox(u"Timeout expired"_q));
    Choose(Qt::Key_Up);
    EXPECT_EQ(FilledColumns(), 0);
    ExpectAtRest();
}

TEST_F(MonthStatistics, LargeCountsAreGroupedOnTheScreenAndPlainInTheirCells)
{
    program.database.Insert(u"SMSLog_2012 (SMSStatus,SendTime)"_q,
                            QStringList(1234, u"'1', '2012-03-01 10-00'"_q));
    Enter();
    EXPECT_EQ(Grid().Cells().Text(3, MonthSent), u"1234"_q);
    EXPECT_TRUE(Grid().Cells().IsNumber(3));
    EXPECT_EQ(Grid().Cells().Text(MonthTotalColumn, MonthSent), u"1234"_q);
}

} // namespace
