#include "history/SendListStatement.h"
#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/HistoryProgram.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/TextBox.h"

#include <gtest/gtest.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace tsms;
using namespace tsms::test;

namespace {

const QString FoundNothing = u"(검색된 전송내역이 없습니다.)"_q;

Box TwoYearsBox()
{
    return {u"문자메시지 전송내역"_q, u"문자메시지 전송내역은 같은연도에 한해서 검색이 가능합니다.!"_q,
            MsgBoxCritical};
}

class SendHistory : public HistoryProgram
{
protected:
    /// An empty, an empty and a locked mark, in this order of rows.
    void LogThree()
    {
        Log({.time = u"2012-05-31-12-00"_q, .name = u"가"_q});
        Log({.time = u"2012-05-31-11-00"_q, .name = u"나"_q});
        Log({.time = u"2012-05-30-10-00"_q, .name = u"다"_q});
    }
    void ChooseField(int index) { program.The<ComboBox>(u"CbSerch"_q).SetListIndex(index); }
    TextBox& Words() { return program.The<TextBox>(u"txtSerch"_q); }
    /// A click on the mark of a choice; the words behind it are wide.
    void ChooseStatus(int index)
    {
        QWidget& option = program.Control(u"OptSendStatus(%1)"_q.arg(index));
        QTest::mouseClick(&option, Qt::LeftButton, Qt::NoModifier, QPoint(12, option.height() / 2));
    }
    MousePointer Pointer() { return program.desktop.pointers.last(); }
};

using SendHistoryInSqlServerWords = InSqlServerWords<SendHistory>;

// The search.

TEST_F(SendHistory, AnEntryToThePageListsWhatWasSentToday)
{
    Log({.time = u"2012-05-29 10-00"_q, .name = u"어제"_q});
    Log({.time = u"2012-05-30 10-00"_q, .name = u"오늘"_q});
    Enter();
    EXPECT_EQ(Names(), QStringList{u"오늘"_q});
    EXPECT_EQ(CountText(), u"(총 : 1건이 검색되었습니다.)"_q);
    EXPECT_TRUE(Words().hasFocus());
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(SendHistory, EachEntryListsAnew)
{
    Enter();
    EXPECT_EQ(List().Cells().MaxRows(), 0);
    Log({});
    program.Click(u"BtnToolbarDis(0)"_q);
    Enter();
    EXPECT_EQ(List().Cells().MaxRows(), 1);
}

TEST_F(SendHistory, AnEntryWhileBusyShowsThePageAndSearchesNothing)
{
    const int opens = program.connections.Opens();
    program.session.Busy = true;
    Enter();
    program.session.Busy = false;
    EXPECT_TRUE(program.Control(u"PlToolBg(1)"_q).isVisible());
    EXPECT_TRUE(Words().hasFocus());
    EXPECT_EQ(program.connections.Opens(), opens);
}

TEST_F(SendHistory, AnEntryOnADeadServerLeavesThePageOnView)
{
    program.connections.RefuseOpens(-1);
    for (int i = 0; i < 3; ++i)
        program.desktop.Expect(ServerDownBox());
    Enter();
    EXPECT_TRUE(program.Control(u"PlToolBg(1)"_q).isVisible());
    EXPECT_EQ(CountText(), QString());
    EXPECT_FALSE(ChkAllEnabled());
    EXPECT_FALSE(program.session.IsBusy());
}

TEST_F(SendHistory, TheQueryHoldsBusyAndTheHourglassUntilItsEnd)
{
    bool busy = false;
    program.connections.BeforeStatement([&](const QString&) {
        busy = program.session.IsBusy();
        EXPECT_EQ(Pointer(), MousePointer::Hourglass);
    });
    Enter();
    EXPECT_TRUE(busy);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(Pointer(), MousePointer::Default);
}

TEST_F(SendHistory, AMessageFillsItsRow)
{
    const int key = Log({.time = u"2012-05-30 14-07"_q,
                         .status = u"2"_q,
                         .name = u"홍길동"_q,
                         .phone = u"010-1234-5678"_q,
                         .content = u"O'Neil & <b>\r\n둘째 줄"_q,
                         .number = u"100017"_q,
                         .errorCode = u"E99"_q,
                         .errorText = u"수신이 거부된 번호입니다."_q});
    Enter();
    ASSERT_EQ(List().Cells().MaxRows(), 1);
    const QStringList expected{QString::number(key),
                               u"2"_q,
                               u"100017"_q,
                               u"실패"_q,
                               u"홍길동"_q,
                               u"010-1234-5678"_q,
                               u"2012-05-30 14:07"_q,
                               u"O'Neil & <b>\r\n둘째 줄"_q,
                               u"E99"_q,
                               u"수신이 거부된 번호입니다."_q};
    for (int col = 1; col <= 10; ++col)
        EXPECT_EQ(List().Cells().Text(col, 1), expected[col - 1]) << col;
    EXPECT_TRUE(List().ColHidden(1));
}

TEST_F(SendHistory, WhatIsNullShowsAsNothing)
{
    Log({.name = {}, .number = {}});
    Enter();
    ASSERT_EQ(List().Cells().MaxRows(), 1);
    for (int col : {3, 5, 9, 10})
        EXPECT_EQ(List().Cells().Text(col, 1), QString()) << col;
}

TEST_F(SendHistory, BothFormsOfTheTimeReadAlike)
{
    Log({.time = u"2012-05-30 14-07"_q});
    Log({.time = u"2012-05-30-14-05"_q});
    Enter();
    // In the database's order a blank stands before a digit, and hyphens do not count.
    EXPECT_EQ(Column(7), QStringList({u"2012-05-30 14:05"_q, u"2012-05-30 14:07"_q}));
}

TEST_F(SendHistory, TheWordsFollowTheStatusAlone)
{
    Log({.time = u"2012-05-31-14-00"_q, .status = u"0"_q});
    Log({.time = u"2012-05-31-13-00"_q, .status = u"1"_q}); // still reserved
    Log({.time = u"2012-05-31-12-00"_q, .status = u"2"_q});
    Log({.time = u"2012-05-31-11-00"_q, .status = u"9"_q});
    EnterAndListAll();
    EXPECT_EQ(Column(4), QStringList({u"예약중"_q, u"성공"_q, u"실패"_q, u"실패"_q}));
}

TEST_F(SendHistory, TheLatestComesFirst)
{
    for (const QString& time : {u"2012-03-01 09-00"_q, u"2012-12-31-23-55"_q, u"2012-05-30 14-07"_q})
        Log({.time = time});
    EnterAndListAll();
    EXPECT_EQ(Column(7), QStringList({u"2012-12-31 23:55"_q, u"2012-05-30 14:07"_q, u"2012-03-01 09:00"_q}));
}

TEST_F(SendHistory, WhatIsChosenOnThePageGoesIntoTheStatement)
{
    Enter();
    SetPeriod(u"2012-04-01"_q, u"2012-04-30"_q);
    ChooseField(1);
    TypeText(Words(), u" 010-1 "_q);
    ChooseStatus(2);
    EXPECT_EQ(LastStatement(),
              SendListStatement({u"2012"_q, 1, u"010-1"_q, 2, u"2012-04-01"_q, u"2012-05-01"_q}).Text());
}

TEST_F(SendHistory, ADayThatIsBeingTypedCounts)
{
    Log({.time = u"2012-05-03 10-00"_q});
    Enter();
    auto& first = program.The<DatePicker>(u"DTPSendDt(0)"_q);
    first.setFocus();
    first.SelectPart(DatePart::Day);
    TypeText(first, u"3"_q);
    Search();
    EXPECT_EQ(List().Cells().MaxRows(), 1);
}

TEST_F(SendHistory, TheFirstAndTheLastDayAreInAndTheDaysAroundThemAreOut)
{
    for (const QString& day : {u"2012-05-27"_q, u"2012-05-28"_q, u"2012-05-29"_q, u"2012-05-30"_q}) {
        Log({.time = day + u" 00-00"_q});
        Log({.time = day + u"-23-59"_q});
    }
    EnterAndList(u"2012-05-28"_q, u"2012-05-29"_q);
    EXPECT_EQ(Column(7), QStringList({u"2012-05-29 23:59"_q, u"2012-05-29 00:00"_q, u"2012-05-28 23:59"_q,
                                      u"2012-05-28 00:00"_q}));
}

TEST_F(SendHistory, APeriodThatEndsWithTheYearStaysInItsTable)
{
    Log({.time = u"2012-12-31 23-59"_q});
    Log({.time = u"2013-01-01 00-00"_q});
    EnterAndList(u"2012-12-31"_q, u"2012-12-31"_q);
    EXPECT_EQ(Column(7), QStringList{u"2012-12-31 23:59"_q});
    EXPECT_TRUE(LastStatement().contains(u"FROM SMSLog_2012 "_q));
    EXPECT_TRUE(LastStatement().contains(u" AND  LEFT(SendTime,10) < '20130101')"_q));
}

TEST_F(SendHistory, APeriodThatEndsInFebruaryOfALeapYearIsWhole)
{
    Log({.time = u"2012-02-29 12-00"_q});
    Log({.time = u"2012-03-01 00-00"_q});
    EnterAndList(u"2012-02-01"_q, u"2012-02-29"_q);
    EXPECT_EQ(Column(7), QStringList{u"2012-02-29 12:00"_q});
}

TEST_F(SendHistory, AnotherYearIsSearchedInItsOwnTable)
{
    Log({.time = u"2012-03-01 10-00"_q, .name = u"올해"_q});
    Log({.time = u"2011-03-01 10-00"_q, .name = u"작년"_q});
    EnterAndList(u"2011-01-01"_q, u"2011-12-31"_q);
    EXPECT_EQ(Names(), QStringList{u"작년"_q});
}

TEST_F(SendHistory, ADayBehindTheLastFindsNothingAndComplainsOfNothing)
{
    Log({});
    EnterAndList(u"2012-05-31"_q, u"2012-05-30"_q);
    EXPECT_EQ(List().Cells().MaxRows(), 0);
    EXPECT_EQ(CountText(), FoundNothing);
}

TEST_F(SendHistory, DatesInTwoYearsAreRefusedAndTheListStays)
{
    Log({.time = u"2012-05-31-10-00"_q});
    EnterAndListAll();
    ClickMark(1);
    SetPeriod(u"2012-12-31"_q, u"2013-01-01"_q);
    const int opens = program.connections.Opens();
    program.desktop.Expect(TwoYearsBox());
    Search();
    EXPECT_TRUE(program.Control(u"DTPSendDt(0)"_q).hasFocus());
    EXPECT_EQ(Marks(), u"t"_q);
    EXPECT_EQ(CountText(), u"(총 : 1건이 검색되었습니다.)"_q);
    EXPECT_EQ(program.connections.Opens(), opens);
    EXPECT_FALSE(program.session.IsBusy());
}

struct Field
{
    int index;
    QString words;
    QStringList found;

    friend void PrintTo(const Field& field, std::ostream* out)
    {
        *out << "field " << field.index << ": " << field.words.toStdString();
    }
};

class SearchedField : public SendHistory, public ::testing::WithParamInterface<Field>
{
};

TEST_P(SearchedField, FindsWhatHoldsTheWords)
{
    Log({.time = u"2012-05-30 12-00"_q,
         .name = u"김하늘"_q,
         .phone = u"010-1111-2222"_q,
         .content = u"모임"_q});
    Log({.time = u"2012-05-30 11-00"_q,
         .name = u"VIP 고객"_q,
         .phone = u"01122223333"_q,
         .content = u"50%"_q});
    Log({.time = u"2012-05-30 10-00"_q, .name = {}, .phone = u"016-333-4444"_q, .content = u"김 모임"_q});
    Enter();
    ChooseField(GetParam().index);
    TypeText(Words(), GetParam().words + u"\n"_q);
    EXPECT_EQ(Column(6), GetParam().found);
}

const QString First = u"010-1111-2222"_q;
const QString Second = u"01122223333"_q;
const QString Third = u"016-333-4444"_q;

INSTANTIATE_TEST_SUITE_P(Fields, SearchedField,
                         ::testing::Values(Field{0, u"김"_q, {First}}, Field{0, u"vip"_q, {Second}},
                                           Field{0, u"모임"_q, {}}, Field{1, u"2222"_q, {First, Second}},
                                           Field{1, u"016-3"_q, {Third}}, Field{2, u"모임"_q, {First, Third}},
                                           Field{2, u"  김 모임 "_q, {Third}},
                                           Field{0, u"   "_q, {First, Second, Third}},
                                           Field{2, u"5_%"_q, {Second}}));

struct Status
{
    int index;
    QStringList found;

    friend void PrintTo(const Status& status, std::ostream* out) { *out << "entry " << status.index; }
};

class ChosenStatus : public SendHistory, public ::testing::WithParamInterface<Status>
{
};

TEST_P(ChosenStatus, IsSearchedAtOnce)
{
    Log({.time = u"2012-06-01-09-00"_q, .status = u"0"_q, .name = u"대기"_q});
    Log({.time = u"2012-05-31-11-00"_q, .status = u"2"_q, .name = u"거부된 예약"_q});
    Log({.time = u"2012-05-31-10-00"_q, .name = u"내일"_q});
    Log({.time = u"2012-05-30-23-55"_q, .name = u"오늘 밤"_q});
    Log({.time = u"2012-05-29 10-00"_q, .name = u"어제"_q});
    Log({.time = u"2012-05-28 10-00"_q, .status = u"2"_q, .name = u"거부"_q});
    EnterAndListAll();
    const int statements = StatementCount();
    ChooseStatus(GetParam().index == 0 ? 3 : 0);
    ChooseStatus(GetParam().index);
    EXPECT_GT(StatementCount(), statements);
    EXPECT_EQ(Names(), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(
    Statuses, ChosenStatus,
    ::testing::Values(Status{0, {u"대기"_q, u"거부된 예약"_q, u"내일"_q, u"오늘 밤"_q, u"어제"_q, u"거부"_q}},
                      Status{1, {u"내일"_q}}, Status{2, {u"오늘 밤"_q, u"어제"_q}},
                      Status{3, {u"거부된 예약"_q, u"거부"_q}}));

TEST_F(SendHistory, AChoiceOfStatusRunsOneSearch)
{
    Enter();
    const int statements = StatementCount();
    ChooseStatus(3);
    EXPECT_EQ(StatementCount(), statements + 1);
}

TEST_F(SendHistory, AStatusChosenByAKeyWhileTheYearsDifferLeavesTheFocusOnTheFirstDay)
{
    Enter();
    SetPeriod(u"2012-12-31"_q, u"2013-01-01"_q);
    QWidget& all = program.Control(u"OptSendStatus(0)"_q);
    all.setFocus();
    program.desktop.Expect(TwoYearsBox());
    PressKey(all, Qt::Key_Right);
    EXPECT_TRUE(program.The<RadioButton>(u"OptSendStatus(1)"_q).Value());
    EXPECT_TRUE(program.Control(u"DTPSendDt(0)"_q).hasFocus());
}

TEST_F(SendHistory, AChoiceOfFieldOnlyMovesTheFocus)
{
    Enter();
    const int statements = StatementCount();
    QWidget& field = program.Control(u"CbSerch"_q);
    field.setFocus();
    PressKey(field, Qt::Key_Down);
    EXPECT_EQ(program.The<ComboBox>(u"CbSerch"_q).ListIndex(), 1);
    EXPECT_TRUE(Words().hasFocus());
    EXPECT_EQ(StatementCount(), statements);
}

TEST_F(SendHistory, EnterInTheWordsSearchesOnceAndIsSwallowed)
{
    Enter();
    const int statements = StatementCount();
    const QSignalSpy entered(&Words(), &QLineEdit::returnPressed);
    TypeText(Words(), u"김\n"_q);
    EXPECT_EQ(entered.count(), 0);
    EXPECT_EQ(StatementCount(), statements + 1);
    EXPECT_TRUE(LastStatement().contains(u" AND SendNm Like '%김%'"_q));
    EXPECT_EQ(Words().Text(), u"김"_q);
    EXPECT_TRUE(Words().hasFocus());
}

TEST_F(SendHistory, BlanksAloneAddNoCondition)
{
    Enter();
    const QString before = LastStatement();
    TypeText(Words(), u"   "_q);
    Search();
    EXPECT_EQ(LastStatement(), before);
}

// What a search says of itself.

TEST_F(SendHistory, TheCountIsGroupedInThousands)
{
    LogMany(1234);
    Enter();
    EXPECT_EQ(List().Cells().MaxRows(), 1234);
    EXPECT_EQ(CountText(), u"(총 : 1,234건이 검색되었습니다.)"_q);
}

TEST_F(SendHistory, WhatIsFoundAllowsTheTicksToBeTurnedRound)
{
    Log({});
    Enter();
    EXPECT_TRUE(ChkAllEnabled());
    SetPeriod(u"2012-05-29"_q, u"2012-05-29"_q);
    Search();
    EXPECT_EQ(CountText(), FoundNothing);
    EXPECT_FALSE(ChkAllEnabled());
}

TEST_F(SendHistory, WhereNothingIsFoundTheBoxOfAllTicksKeepsItsTick)
{
    LogThree();
    EnterAndListAll();
    ClickChkAll();
    SetPeriod(u"2012-05-29"_q, u"2012-05-29"_q);
    Search();
    EXPECT_FALSE(ChkAllEnabled());
    EXPECT_TRUE(ChkAllTicked());
}

TEST_F(SendHistory, ANewSearchThrowsTheTicksAwayAndUnticksTheirBox)
{
    LogThree();
    EnterAndListAll();
    ClickChkAll();
    EXPECT_TRUE(ChkAllTicked());
    EXPECT_EQ(Marks(), u"ttl"_q);
    Search();
    EXPECT_FALSE(ChkAllTicked());
    EXPECT_EQ(Marks(), u"eel"_q);
}

// The marks.

TEST_F(SendHistory, TheFirstMarksFollowStatusAndDay)
{
    Log({.time = u"2012-05-31-14-00"_q});                   // tomorrow
    Log({.time = u"2012-05-31-13-00"_q, .status = u"2"_q}); // refused
    Log({.time = u"2012-05-31-12-00"_q, .status = u"0"_q});
    Log({.time = u"2012-05-30-23-55"_q}); // today
    Log({.time = u"2012-05-30-10-00"_q, .status = u"0"_q});
    Log({.time = u"2012-05-29 10-00"_q});
    EnterAndListAll();
    EXPECT_EQ(Marks(), u"elelll"_q);
    EXPECT_EQ(List().Cells().Text(4, 5), u"예약중"_q); // locked all the same
}

TEST_F(SendHistory, AClickTicksAnEmptyMarkAndTheNextUnticksIt)
{
    LogThree();
    EnterAndListAll();
    ClickMark(2);
    EXPECT_EQ(Marks(), u"etl"_q);
    ClickMark(2);
    EXPECT_EQ(Marks(), u"eel"_q);
}

TEST_F(SendHistory, AClickOnALockedMarkIsAnswered)
{
    LogThree();
    EnterAndListAll();
    program.desktop.Expect(LockedBox());
    ClickMark(3);
    EXPECT_EQ(Marks(), u"eel"_q);
}

TEST_F(SendHistory, AClickBesideTheMarkChangesNothing)
{
    LogThree();
    EnterAndListAll();
    for (int col = 3; col <= 10; ++col)
        for (int row = 1; row <= 3; ++row)
            ClickCell(List(), col, row);
    EXPECT_EQ(Marks(), u"eel"_q);
}

TEST_F(SendHistory, TheSpaceBarOnAMarkIsAClickOnIt)
{
    LogThree();
    EnterAndListAll();
    List().setFocus();
    PressKey(List(), Qt::Key_Space);
    EXPECT_EQ(Marks(), u"tel"_q);
    PressKey(List(), Qt::Key_Down);
    PressKey(List(), Qt::Key_Space);
    EXPECT_EQ(Marks(), u"ttl"_q);
    PressKey(List(), Qt::Key_Right);
    PressKey(List(), Qt::Key_Space);
    EXPECT_EQ(Marks(), u"ttl"_q);
}

TEST_F(SendHistory, TheBoxOfAllTicksTurnsEachTickRoundWhateverItShows)
{
    LogThree();
    EnterAndListAll();
    ClickMark(2);
    ClickChkAll();
    EXPECT_EQ(Marks(), u"tel"_q);
    EXPECT_TRUE(ChkAllTicked());
    ClickChkAll();
    EXPECT_EQ(Marks(), u"etl"_q);
    EXPECT_FALSE(ChkAllTicked());
}

// The buttons.

TEST_F(SendHistory, WithoutRowsTheButtonsAndTheMarksDoNothing)
{
    Enter();
    ASSERT_EQ(List().Cells().MaxRows(), 0);
    for (int button = 0; button < 3; ++button)
        program.Click(u"BtnSendListFun(%1)"_q.arg(button));
    List().setFocus();
    PressKey(List(), Qt::Key_Space);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
    EXPECT_EQ(Form::Loaded().size(), 1);
}

TEST_F(SendHistory, WhileBusyNothingActs)
{
    LogThree();
    EnterAndListAll();
    ClickMark(1);
    const int opens = program.connections.Opens();
    program.session.Busy = true;
    Search();
    ChooseStatus(3);
    TypeText(Words(), u"김\n"_q);
    ClickMark(2);
    ClickMark(3); // locked: no box
    ClickChkAll();
    for (int button = 0; button < 3; ++button)
        program.Click(u"BtnSendListFun(%1)"_q.arg(button));
    DoubleClickCell(List(), 8, 1);
    List().setFocus();
    ChooseField(2);
    EXPECT_TRUE(List().hasFocus());
    program.session.Busy = false;
    EXPECT_EQ(Marks(), u"tel"_q);
    EXPECT_EQ(program.connections.Opens(), opens);
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
    EXPECT_EQ(Form::Loaded().size(), 1);
}

// What goes wrong.

class FailedSearch : public SendHistory
{
protected:
    /// A list with a tick, its box ticked as well.
    void SetUp() override
    {
        SendHistory::SetUp();
        LogThree();
        EnterAndListAll();
        ClickChkAll();
    }
    void ExpectFormerStateAroundAnEmptyList()
    {
        EXPECT_EQ(List().Cells().MaxRows(), 0);
        EXPECT_EQ(List().Cells().MaxCols(), 10);
        EXPECT_EQ(CountText(), u"(총 : 3건이 검색되었습니다.)"_q);
        EXPECT_TRUE(ChkAllEnabled());
        EXPECT_TRUE(ChkAllTicked());
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(Pointer(), MousePointer::Default);
        EXPECT_EQ(program.connections.OpenNow(), 0);
    }
    void ExpectThePageWorksOn()
    {
        SetPeriod(u"2012-01-01"_q, u"2012-12-31"_q);
        Words().SetText(QString());
        Search();
        EXPECT_EQ(Marks(), u"eel"_q);
    }
};

using FailedSearchInSqlServerWords = InSqlServerWords<FailedSearch>;

TEST_F(FailedSearchInSqlServerWords, OfAYearWithoutATableEmptiesTheListAndLeavesTheRest)
{
    SetPeriod(u"2009-01-01"_q, u"2009-12-31"_q);
    program.desktop.Expect(DatabaseBox(u"Invalid object name 'SMSLog_2009'."_q));
    Search();
    ExpectFormerStateAroundAnEmptyList();
    ClickChkAll(); // finds no row
    ExpectThePageWorksOn();
}

TEST_F(FailedSearch, OnADeadServerShowsABoxForEachAttemptAndOneForTheQuery)
{
    program.connections.RefuseOpens(-1);
    for (int i = 0; i < 3; ++i)
        program.desktop.Expect(ServerDownBox());
    Search();
    ExpectFormerStateAroundAnEmptyList();
    program.connections.RefuseOpens(0);
    ExpectThePageWorksOn();
}

TEST_F(FailedSearch, WithBothAttemptsRefusedTheQueryIsLostInSilence)
{
    program.connections.RefuseOpens(2);
    program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(ServerDownBox());
    Search();
    ExpectFormerStateAroundAnEmptyList();
    ExpectThePageWorksOn();
}

TEST_F(FailedSearch, WithTheFirstAttemptRefusedTheSecondFinds)
{
    program.connections.RefuseOpens(1);
    program.desktop.Expect(ServerDownBox());
    Search();
    EXPECT_EQ(Marks(), u"eel"_q);
}

TEST_F(FailedSearch, OnALinkThatBreaksShowsOneBox)
{
    program.connections.FailStatement(1, CommunicationFailure, u"Connection failure"_q);
    program.desktop.Expect(ServerDownBox());
    Search();
    ExpectFormerStateAroundAnEmptyList();
    ExpectThePageWorksOn();
}

TEST_F(FailedSearchInSqlServerWords, ForAnApostropheShowsTheServersWordsAndChangesNothing)
{
    Words().SetText(u"O'Neil"_q);
    program.desktop.Expect(
        DatabaseBox(u"Unclosed quotation mark after the character string ') ORDER BY SendTime DESC '."_q));
    Search();
    ExpectFormerStateAroundAnEmptyList();
    EXPECT_EQ(program.LogRows(), 3);
    ExpectThePageWorksOn();
}

TEST_F(FailedSearch, ForWordsThatWouldChangeTheStatementSendsNothing)
{
    const int statements = StatementCount();
    Words().SetText(u"x'; DELETE SMSLog_2012 WHERE '1'='1"_q);
    program.desktop.Expect(DatabaseBox(u"Incorrect syntax near ';'."_q));
    Search();
    ExpectFormerStateAroundAnEmptyList();
    EXPECT_EQ(StatementCount(), statements);
    EXPECT_EQ(program.LogRows(), 3);
}

TEST_F(SendHistory, ARowWithoutADayEndsTheMarksInABox)
{
    Log({.time = u"2012-03-01-10-00"_q});
    Log({.time = u"2012-02-30-10-00"_q});
    Log({.time = u"2012-02-01-10-00"_q});
    Enter();
    SetPeriod(u"2012-02-01"_q, u"2012-03-31"_q);
    program.desktop.Expect(DatabaseBox(u"형식이 일치하지 않습니다."_q));
    Search();
    EXPECT_EQ(Marks(), u"l--"_q);
    EXPECT_EQ(CountText(), u"(총 : 3건이 검색되었습니다.)"_q);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(Pointer(), MousePointer::Default);
    ClickMark(2); // has no mark to turn
    SetPeriod(u"2012-03-01"_q, u"2012-03-31"_q);
    Search();
    EXPECT_EQ(Marks(), u"l"_q);
}

TEST_F(SendHistoryInSqlServerWords, ADayThatTheServerCannotReadFailsTheFilterOfTheReserved)
{
    Log({.time = u"2012-02-30-10-00"_q});
    Enter();
    SetPeriod(u"2012-02-01"_q, u"2012-03-31"_q);
    program.desktop.Expect(
        DatabaseBox(u"Conversion failed when converting date and/or time from character string."_q));
    ChooseStatus(1);
    EXPECT_EQ(List().Cells().MaxRows(), 0);
}

TEST_F(SendHistory, AWindowThatIsClosedInTheMiddleOfALongSearchLetsItEnd)
{
    LogMany(20000);
    program.connections.BeforeStatement([this](const QString& statement) {
        if (!statement.startsWith(u"SELECT  SMSKey"_q))
            return;
        QMetaObject::invokeMethod(program.form.get(), &QWidget::close, Qt::QueuedConnection);
        QTest::qSleep(20); // events are due again after the pace of a screen
    });
    program.desktop.Expect(
        {u"프로그램 종료"_q, u"프로그램 종료 : 타른리프 문자메시지을 종료하시겠습니까?"_q, MsgBoxQuestion},
        AnswerYes, [this] { EXPECT_EQ(List().Cells().MaxRows(), 0); });
    Enter();
    EXPECT_EQ(List().Cells().MaxRows(), 20000);
    EXPECT_FALSE(program.form->isVisible());
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(SendHistory, AsManyRowsAsTheCounterHoldsAreListed)
{
    LogMany(32767);
    Enter();
    EXPECT_EQ(CountText(), u"(총 : 32,767건이 검색되었습니다.)"_q);
    EXPECT_EQ(List().Cells().CellPicture(2, 32767), 2);
}

TEST_F(SendHistory, OneRowMoreOverflowsAndThePageWorksOn)
{
    LogMany(32768);
    program.desktop.Expect(DatabaseBox(u"오버플로"_q));
    Enter();
    EXPECT_EQ(List().Cells().MaxRows(), 32768);
    EXPECT_EQ(CountText(), u"(총 : 32,768건이 검색되었습니다.)"_q);
    EXPECT_EQ(List().Cells().CellPicture(2, 32767), 2);
    EXPECT_EQ(List().Cells().CellPicture(2, 32768), -1);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(Pointer(), MousePointer::Default);
    EXPECT_EQ(program.connections.OpenNow(), 0);
    program.database.Execute(u"DELETE FROM SMSLog_2012 WHERE SMSKey > 1"_q);
    Search();
    EXPECT_EQ(Marks(), u"l"_q);
}

} // namespace
