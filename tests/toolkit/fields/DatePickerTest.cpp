#include "toolkit/fields/DatePicker.h"

#include "support/program/Hands.h"
#include "support/Words.h"
#include "toolkit/look/Theme.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTextCharFormat>
#include <QToolButton>

#include <gtest/gtest.h>

#include <utility>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(DatePicker, IsShownAndReadWithHyphensWhateverTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    DatePicker picker(nullptr, u"DTPSendDt(0)"_q);
    picker.SetValue(QDate(2012, 5, 3));
    EXPECT_EQ(picker.Value(), u"2012-05-03"_q);
    EXPECT_EQ(picker.text(), u"2012-05-03"_q);
    QLocale::setDefault(before);
}

TEST(DatePicker, IsDrivenByKeys)
{
    DatePicker picker(nullptr, u"DTPSendDt(0)"_q);
    picker.SetValue(QDate(2012, 5, 31));
    int changes = 0;
    picker.OnChange = [&] { ++changes; };
    picker.show();
    picker.SelectPart(DatePart::Day);
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(picker.Value(), u"2012-05-30"_q);
    EXPECT_EQ(changes, 1);
}

TEST(DatePicker, ADayThatItsMonthDoesNotHaveBecomesItsLastWhenTheMonthIsStepped)
{
    DatePicker picker(nullptr, u"DTPSendDt(0)"_q);
    picker.SetValue(QDate(2012, 5, 31));
    picker.SelectPart(DatePart::Month);
    QTest::keyClick(&picker, Qt::Key_Up);
    EXPECT_EQ(picker.text(), u"2012-06-30"_q);
    EXPECT_EQ(picker.selectedText(), u"06"_q);
}

/// 2012-05-31 in a window that has another field.
class DatePickerFocus : public testing::Test
{
protected:
    void SetUp() override
    {
        picker.setGeometry(10, 10, 140, 30);
        next.setGeometry(10, 60, 140, 30);
        window.resize(200, 100);
        picker.SetValue(QDate(2012, 5, 31));
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        next.setFocus();
    }
    void ClickOnPart(DatePart part)
    {
        const QLineEdit& line = picker;
        const int before = static_cast<int>(PlaceOf(line.text(), part).start);
        const int x = picker.fontMetrics().horizontalAdvance(line.text().first(before + 1));
        QTest::mouseClick(&picker, Qt::LeftButton, {}, QPoint(x + 4, picker.height() / 2));
    }
    void Type(const QString& keys) { QTest::keyClicks(&picker, keys); }
    /// What is shown when the focus has left.
    QString Left()
    {
        next.setFocus();
        return picker.text();
    }

    QWidget window;
    DatePicker picker{&window, u"DTPSendDt(0)"_q};
    QLineEdit next{&window};
};

struct TypingRow
{
    const char* name;
    DatePart part;
    const char* keys;
    const char* date;
};

class DatePickerTyping : public DatePickerFocus, public testing::WithParamInterface<TypingRow>
{
};

TEST_P(DatePickerTyping, IsReadAsItWillStandWhenItIsLeft)
{
    ClickOnPart(GetParam().part);
    Type(QString::fromLatin1(GetParam().keys));
    EXPECT_EQ(picker.Value(), QString::fromLatin1(GetParam().date));
    EXPECT_EQ(picker.text(), QString::fromLatin1(GetParam().date));
    EXPECT_EQ(Left(), QString::fromLatin1(GetParam().date));
}

TEST_P(DatePickerTyping, IsShownWhenItIsLeft)
{
    ClickOnPart(GetParam().part);
    Type(QString::fromLatin1(GetParam().keys));
    EXPECT_EQ(Left(), QString::fromLatin1(GetParam().date));
    EXPECT_EQ(picker.Value(), QString::fromLatin1(GetParam().date));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DatePickerTyping,
    testing::Values(TypingRow{"ADigitOfTheDay", DatePart::Day, "2", "2012-05-02"},
                    TypingRow{"TheDay", DatePart::Day, "07", "2012-05-07"},
                    TypingRow{"ThirdDigitOfTheDay", DatePart::Day, "071", "2012-05-07"},
                    TypingRow{"ADigitOfTheMonth", DatePart::Month, "1", "2012-01-31"},
                    TypingRow{"TheMonth", DatePart::Month, "10", "2012-10-31"},
                    TypingRow{"TheMonthAndTheDay", DatePart::Month, "1130", "2012-11-30"},
                    TypingRow{"TheMonthAndTheDayWithAHyphen", DatePart::Month, "6-3", "2012-06-03"},
                    TypingRow{"TheYear", DatePart::Year, "2019", "2019-05-31"},
                    TypingRow{"PartOfTheYear", DatePart::Year, "201", "2012-05-31"},
                    TypingRow{"AsItIsShown", DatePart::Year, "2019-05-06", "2019-05-06"},
                    TypingRow{"AsItIsShownFromTheMonth", DatePart::Month, "2019-05-06", "2019-05-06"},
                    TypingRow{"AsItIsShownFromTheDay", DatePart::Day, "2019-05-06", "2019-05-06"},
                    TypingRow{"EightDigits", DatePart::Year, "20190506", "2019-05-06"},
                    TypingRow{"EightDigitsFromTheMonth", DatePart::Month, "20190506", "2019-05-06"},
                    TypingRow{"EightDigitsFromTheDay", DatePart::Day, "20190506", "2019-05-06"},
                    TypingRow{"ADigitTooMany", DatePart::Year, "2019-05-061", "2019-05-06"},
                    TypingRow{"WithDots", DatePart::Year, "2019.5.16", "2019-05-16"},
                    TypingRow{"NoSuchDay", DatePart::Month, "0230", "2012-05-31"},
                    TypingRow{"NoSuchMonth", DatePart::Month, "13", "2012-05-31"},
                    TypingRow{"NoSuchDate", DatePart::Year, "2019-02-29", "2012-05-31"},
                    TypingRow{"TheMonthOfALaterDay", DatePart::Month, "02", "2012-05-31"},
                    TypingRow{"ALetter", DatePart::Day, "x0y9", "2012-05-09"},
                    TypingRow{"BeforeTheServersDates", DatePart::Year, "1752-12-31", "2012-05-31"}),
    [](const auto& row) { return row.param.name; });

TEST_F(DatePickerFocus, ByTabTheWholeDateIsMarkedAndReplacedByWhatIsTyped)
{
    for (const QString& date : {u"2019-05-06"_q, u"20190506"_q, u"2019.5.6"_q}) {
        picker.SetValue(QDate(2012, 5, 31));
        next.setFocus();
        picker.setFocus(Qt::TabFocusReason);
        EXPECT_EQ(picker.selectedText(), u"2012-05-31"_q);
        Type(date);
        EXPECT_EQ(Left(), u"2019-05-06"_q);
    }
}

TEST_F(DatePickerFocus, OneTabLeavesIt)
{
    ClickOnPart(DatePart::Year);
    QTest::keyClick(&picker, Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
}

TEST_F(DatePickerFocus, AClickMarksThePartUnderIt)
{
    ClickOnPart(DatePart::Month);
    EXPECT_EQ(picker.selectedText(), u"05"_q);
    ClickOnPart(DatePart::Year);
    EXPECT_EQ(picker.selectedText(), u"2012"_q);
}

TEST_F(DatePickerFocus, ArrowsMarkTheNeighbourAndStopAtTheEnds)
{
    ClickOnPart(DatePart::Year);
    QTest::keyClick(&picker, Qt::Key_Left);
    EXPECT_EQ(picker.selectedText(), u"2012"_q);
    QTest::keyClick(&picker, Qt::Key_Right);
    EXPECT_EQ(picker.selectedText(), u"05"_q);
    QTest::keyClick(&picker, Qt::Key_End);
    QTest::keyClick(&picker, Qt::Key_Right);
    EXPECT_EQ(picker.selectedText(), u"31"_q);
    QTest::keyClick(&picker, Qt::Key_Home);
    EXPECT_EQ(picker.selectedText(), u"2012"_q);
}

TEST_F(DatePickerFocus, WhatIsErasedComesBackWhenNothingIsTypedInItsPlace)
{
    picker.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&picker, Qt::Key_Backspace);
    EXPECT_EQ(picker.text(), QString());
    EXPECT_EQ(picker.Value(), u"2012-05-31"_q);
    ClickOnPart(DatePart::Day);
    QTest::keyClick(&picker, Qt::Key_Backspace);
    EXPECT_EQ(picker.text(), u"2012-05-"_q);
    Type(u"4"_q);
    EXPECT_EQ(Left(), u"2012-05-04"_q);
}

TEST_F(DatePickerFocus, ADateBeingTypedStaysWhileAnotherWindowIsActive)
{
    ClickOnPart(DatePart::Month);
    Type(u"0"_q);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(picker.text(), u"2012-0-31"_q);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Type(u"1"_q);
    EXPECT_EQ(Left(), u"2012-01-31"_q);
}

TEST_F(DatePickerFocus, AnImpossibleDateGivesWayBeforeAPartIsStepped)
{
    ClickOnPart(DatePart::Month);
    Type(u"02"_q);
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(picker.text(), u"2012-05-30"_q);
}

TEST_F(DatePickerFocus, AnImpossibleDateLeavesTheLookOfARefusalUntilTheFieldIsUsedAgain)
{
    const auto colors = [this] {
        return std::pair(picker.palette().color(QPalette::Base), picker.palette().color(QPalette::Text));
    };
    const std::pair resting = colors();
    const std::pair refusing(theme::Warning, theme::White);
    const auto leaveWith = [this](const QString& digits) {
        ClickOnPart(DatePart::Month);
        Type(digits);
        Left();
    };
    leaveWith(u"0230"_q);
    EXPECT_EQ(colors(), refusing);
    EXPECT_EQ(picker.Value(), u"2012-05-31"_q);
    EXPECT_EQ(colors(), refusing) << "to ask for the value is no use";
    leaveWith(u"0430"_q);
    EXPECT_EQ(colors(), resting);
    leaveWith(u"0230"_q);
    picker.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(colors(), resting);
    PasteText(picker, u"2012-02-30"_q);
    EXPECT_EQ(colors(), refusing);
    QTest::keyClick(&picker, Qt::Key_Left);
    EXPECT_EQ(colors(), resting);
    leaveWith(u"0230"_q);
    picker.SetValue(QDate(2012, 5, 31));
    EXPECT_EQ(colors(), resting);
}

TEST_F(DatePickerFocus, ARefusedDateThatIsThenDisabledCanBeRead)
{
    ClickOnPart(DatePart::Month);
    Type(u"0230"_q);
    Left();
    picker.setEnabled(false);
    EXPECT_EQ(picker.palette().color(QPalette::Text),
              QApplication::palette().color(QPalette::Disabled, QPalette::Text));
}

TEST_F(DatePickerFocus, AChangeIsToldOnceWhenTheDateIsWhole)
{
    QStringList told;
    picker.OnChange = [&] { told += picker.text(); };
    picker.setFocus(Qt::TabFocusReason);
    Type(u"2019-05-06"_q);
    Left();
    picker.SetValue(QDate(2012, 1, 1));
    picker.SetValue(QDate(2012, 1, 1));
    EXPECT_EQ(told, (QStringList{u"2019-05-06"_q, u"2012-01-01"_q}));
}

struct PasteRow
{
    const char* name;
    QString text;
    const char* date;
};

class DatePickerPaste : public DatePickerFocus, public testing::WithParamInterface<PasteRow>
{
};

TEST_P(DatePickerPaste, PutsTheDateWhicheverPartIsMarked)
{
    for (const DatePart part : {DatePart::Year, DatePart::Month, DatePart::Day}) {
        picker.SetValue(QDate(2012, 5, 31));
        ClickOnPart(part);
        PasteText(picker, GetParam().text);
        EXPECT_EQ(picker.text(), QString::fromLatin1(GetParam().date));
        EXPECT_EQ(Left(), QString::fromLatin1(GetParam().date));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, DatePickerPaste,
                         testing::Values(PasteRow{"AsShown", u"2019-05-06"_q, "2019-05-06"},
                                         PasteRow{"Digits", u"20190506"_q, "2019-05-06"},
                                         PasteRow{"CellOfASheet", u"2019-05-06\r\n"_q, "2019-05-06"},
                                         PasteRow{"Dots", u"2019. 5. 6."_q, "2019-05-06"},
                                         PasteRow{"Words", u"2019년 5월 6일"_q, "2019-05-06"},
                                         PasteRow{"Impossible", u"2019-02-30"_q, "2012-05-31"},
                                         PasteRow{"NoDate", u"내일"_q, "2012-05-31"},
                                         PasteRow{"WithATime", u"2019-05-06 10:00"_q, "2012-05-31"}),
                         [](const auto& row) { return row.param.name; });

TEST_F(DatePickerFocus, APastedNumberReplacesThePartThatIsMarked)
{
    ClickOnPart(DatePart::Month);
    PasteText(picker, u"10"_q);
    EXPECT_EQ(Left(), u"2012-10-31"_q);
}

TEST(DatePicker, OpensItsCalendarByKey)
{
    DatePicker picker(nullptr, u"DTPSendDt(0)"_q);
    picker.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&picker));
    EXPECT_FALSE(picker.IsCalendarOpen());
    QTest::keyClick(&picker, Qt::Key_F4);
    EXPECT_TRUE(picker.IsCalendarOpen());
}

class DatePickerChoice : public testing::Test
{
protected:
    void SetUp() override
    {
        picker.SetValue(QDate(2012, 5, 30));
        picker.OnChoose = [this] {
            ++chosen;
            EXPECT_FALSE(picker.IsCalendarOpen());
        };
        picker.show();
        picker.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&picker));
        picker.setFocus();
    }
    QTableView& Days()
    {
        picker.OpenCalendar();
        return *picker.findChild<QTableView*>();
    }
    /// The cell of a day of May 2012.
    static QPoint PlaceOf(const QTableView& days, int day)
    {
        for (int row = 0; row < days.model()->rowCount(); ++row)
            for (int column = 0; column < days.model()->columnCount(); ++column) {
                const QModelIndex cell = days.model()->index(row, column);
                const bool begun = row > 1 || day < 8; // the first week may hold the end of April
                if (begun && cell.data().toInt() == day && !days.visualRect(cell).isEmpty())
                    return days.visualRect(cell).center();
            }
        return {};
    }

    DatePicker picker{nullptr, u"DTPChargeDt"_q};
    int chosen = 0;
};

TEST_F(DatePickerChoice, ADayClickedInTheCalendarIsTold)
{
    QTableView& days = Days();
    QTest::mouseClick(days.viewport(), Qt::LeftButton, {}, PlaceOf(days, 17));
    EXPECT_EQ(picker.Value(), u"2012-05-17"_q);
    EXPECT_EQ(chosen, 1);
}

TEST_F(DatePickerChoice, TheDayThatStandsThereIsToldAsWell)
{
    QTest::keyClick(&Days(), Qt::Key_Return);
    EXPECT_EQ(picker.Value(), u"2012-05-30"_q);
    EXPECT_EQ(chosen, 1);
}

TEST_F(DatePickerChoice, ASecondOpeningTellsOnceMore)
{
    QTest::keyClick(&Days(), Qt::Key_Return);
    QTest::keyClick(&Days(), Qt::Key_Return);
    EXPECT_EQ(chosen, 2);
}

TEST_F(DatePickerChoice, ACalendarThatIsLeftTellsNothing)
{
    QTest::keyClick(&Days(), Qt::Key_Escape);
    EXPECT_FALSE(picker.IsCalendarOpen());
    EXPECT_EQ(chosen, 0);
}

TEST_F(DatePickerChoice, BehindACalendarThatIsLeftDigitsReplaceThePartAsBefore)
{
    picker.SelectPart(DatePart::Month);
    QTest::keyClick(&Days(), Qt::Key_Escape);
    picker.deselect(); // as a desk may have it
    QTest::keyClicks(&picker, u"11"_q);
    EXPECT_EQ(picker.Value(), u"2012-11-30"_q);
}

TEST_F(DatePickerChoice, ADateThatIsTypedTellsNothing)
{
    picker.SelectPart(DatePart::Day);
    QTest::keyClicks(&picker, u"17"_q);
    EXPECT_EQ(picker.Value(), u"2012-05-17"_q);
    EXPECT_EQ(chosen, 0);
}

TEST_F(DatePickerChoice, TheTitleOfTheCalendarReadsYearBeforeMonth)
{
    picker.SetValue(QDate(2026, 11, 3));
    Days();
    auto* year = picker.findChild<QToolButton*>(u"qt_calendar_yearbutton"_q);
    auto* month = picker.findChild<QToolButton*>(u"qt_calendar_monthbutton"_q);
    EXPECT_EQ(year->text() + u' ' + month->text(), u"2026년 11월"_q);
    EXPECT_LT(year->x(), month->x());
    const auto blanksBetween = [&] {
        const auto words = [](const QToolButton& b) { return b.fontMetrics().horizontalAdvance(b.text()); };
        const int middles = month->geometry().center().x() - year->geometry().center().x();
        const int gap = middles - (words(*year) + words(*month)) / 2;
        return static_cast<double>(gap) / year->fontMetrics().horizontalAdvance(u' ');
    };
    EXPECT_NEAR(blanksBetween(), 1, 0.5);
    auto* next = picker.findChild<QToolButton*>(u"qt_calendar_nextmonth"_q);
    next->click();
    next->click();
    EXPECT_EQ(year->text() + u' ' + month->text(), u"2027년 1월"_q);
    EXPECT_NEAR(blanksBetween(), 1, 0.5);
    year->click();
    QTest::keyClick(picker.findChild<QSpinBox*>(u"qt_calendar_yearedit"_q), Qt::Key_Return);
    EXPECT_EQ(year->text(), u"2027년"_q);
}

TEST_F(DatePickerChoice, SundaysAreRedAndSaturdaysBlue)
{
    Days();
    const auto& calendar = *picker.findChild<QCalendarWidget*>();
    const auto hue = [&](Qt::DayOfWeek day) {
        return calendar.weekdayTextFormat(day).foreground().color().hslHue();
    };
    EXPECT_TRUE(hue(Qt::Sunday) < 20 || hue(Qt::Sunday) > 340) << hue(Qt::Sunday);
    EXPECT_NEAR(hue(Qt::Saturday), 220, 20);
}

TEST_F(DatePickerChoice, TodayIsMarkedInTheCalendar)
{
    picker.SetValue(QDate::currentDate().addDays(40));
    Days();
    const auto& calendar = *picker.findChild<QCalendarWidget*>();
    const QTextCharFormat today = calendar.dateTextFormat(QDate::currentDate());
    EXPECT_EQ(today.fontWeight(), QFont::Bold);
    EXPECT_NE(today.background().style(), Qt::NoBrush);
}

TEST_F(DatePickerChoice, ADateBeingTypedIsReadBeforeTheCalendarOpens)
{
    picker.SelectPart(DatePart::Day);
    QTest::keyClicks(&picker, u"17"_q);
    Days();
    EXPECT_EQ(picker.findChild<QCalendarWidget*>()->selectedDate(), QDate(2012, 5, 17));
}

} // namespace
