#include "spreadsheet/read/ReadWorkbook.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

/// A workbook with numbers in formats of its own.
class NumberCells : public ::testing::TestWithParam<WorkbookMaker::Version>
{
protected:
    /// What a cell with that number and that format code shows.
    QString Shown(double number, const QString& code) const
    {
        WorkbookMaker book(GetParam());
        const int format = book.AddFormat(code);
        book.AddSheet(u"수"_q).Number(1, 1, number, format);
        return ReadWorkbookStream(book.Stream(), 1).firstSheet->Text(1, 1);
    }
};

INSTANTIATE_TEST_SUITE_P(Both, NumberCells,
                         ::testing::Values(WorkbookMaker::Version::Biff5, WorkbookMaker::Version::Biff8),
                         [](const auto& version) {
                             return version.param == WorkbookMaker::Version::Biff5 ? "Biff5" : "Biff8";
                         });

TEST_P(NumberCells, ALongCardNumberEndsWithAZero)
{
    EXPECT_EQ(Shown(1234567890123456, u"0000-0000-0000-0000"_q), u"1234-5678-9012-3460"_q);
}

TEST_P(NumberCells, HoursOfWorkAreCountedInSmallAndCapitalLetters)
{
    EXPECT_EQ(Shown(1.5, u"[h]:mm:ss"_q), u"36:00:00"_q);
    EXPECT_EQ(Shown(1.5, u"[HH]:MM:SS"_q), u"36:00:00"_q);
    EXPECT_EQ(Shown(1.5, u"[SS]"_q), u"36:00:00"_q);
}

TEST_P(NumberCells, AYearOfAnotherCalendarIsADate)
{
    EXPECT_EQ(Shown(41059, u"bbbb"_q), u"2012-05-30"_q);
    EXPECT_EQ(Shown(41059, u"[$-411]gge\"년\""_q), u"2012-05-30"_q);
}

TEST_P(NumberCells, ANegativeNumberInTwoSectionsIsAsPeopleSeeIt)
{
    EXPECT_EQ(Shown(-5, u"0_);(0)"_q), u"(5)"_q);
    EXPECT_EQ(Shown(-5, u"0;@"_q), u"-5"_q);
    EXPECT_EQ(Shown(-5, u"[>=1]0;0"_q), u"-5"_q);
}

} // namespace
