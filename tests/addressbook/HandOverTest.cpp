#include "addressbook/HandOver.h"

#include "addressbook/BookGrids.h"
#include "recipients/GridRecipientList.h"
#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

/// A row of the chosen list, told by signs: 't' ticked, 'h' hidden.
struct ChosenRow
{
    QString name;
    QString state;
};

void FillChosen(fpSpread& grid, const QList<ChosenRow>& rows)
{
    InitChosenGrid(grid);
    grid.Cells().SetMaxRows(static_cast<int>(rows.size()));
    int row = 0;
    for (const ChosenRow& each : rows) {
        ++row;
        grid.Cells().SetText(ChosenName, row, each.name);
        grid.Cells().SetText(ChosenPhone, row, u"010-"_q + each.name);
        grid.Cells().SetCellPicture(ChosenTick, row, each.state.contains(u't') ? 1 : 0);
        grid.SetRowHidden(row, each.state.contains(u'h'));
    }
}

/// A list of recipients by their numbers; "" is a free row.
void FillRecipients(fpSpread& grid, const QStringList& phones)
{
    grid.Reset();
    grid.Cells().SetMaxCols(5);
    grid.Cells().SetMaxRows(static_cast<int>(phones.size()));
    for (int row = 1; row <= phones.size(); ++row) {
        grid.Cells().SetText(1, row, u"#%1"_q.arg(row));
        grid.Cells().SetText(3, row, phones[row - 1]);
    }
}

void HandOverTo(const fpSpread& chosen, fpSpread& grid)
{
    GridRecipientList recipients(grid);
    HandOver(chosen, recipients);
}

QStringList Names(const fpSpread& grid)
{
    QStringList names;
    for (int row = 0; row <= grid.Cells().MaxRows(); ++row)
        names += grid.Cells().Text(2, row);
    return names;
}

TEST(HandOver, TicksAreCountedInHiddenRowsToo)
{
    fpSpread grid;
    FillChosen(grid, {{u"a"_q, u"t"_q}, {u"b"_q, u"th"_q}, {u"c"_q, u""_q}, {u"d"_q, u"h"_q}});
    EXPECT_EQ(CountChosen(grid), 2);
    FillChosen(grid, {});
    EXPECT_EQ(CountChosen(grid), 0);
}

TEST(HandOver, TheRowsFallWhereTheArithmeticPutsThem)
{
    struct Case
    {
        const char* what;
        QList<ChosenRow> chosen;
        QStringList recipients;
        QStringList names; // from row 0 on, as many as the list has rows by then
    };
    const Case cases[] = {
        {"from the first free row on",
         {{u"a"_q, u"t"_q}, {u"b"_q, u"t"_q}},
         {u"1"_q, u""_q, u""_q},
         {u""_q, u""_q, u"a"_q, u"b"_q, u""_q, u""_q}},
        {"blanks are free", {{u"a"_q, u"t"_q}}, {u"1"_q, u"  "_q}, {u""_q, u""_q, u"a"_q, u""_q}},
        {"over filled rows behind the first free one",
         {{u"a"_q, u"t"_q}, {u"b"_q, u"t"_q}},
         {u""_q, u"2"_q, u"3"_q},
         {u""_q, u"a"_q, u"b"_q, u""_q, u""_q, u""_q}},
        {"a hidden row leaves a blank one",
         {{u"a"_q, u"t"_q}, {u"b"_q, u"th"_q}, {u"c"_q, u"t"_q}},
         {u""_q},
         {u""_q, u"a"_q, u""_q, u"c"_q, u""_q}},
        {"an unticked row is written",
         {{u"a"_q, u"t"_q}, {u"b"_q, u""_q}},
         {u""_q, u""_q},
         {u""_q, u"a"_q, u"b"_q, u""_q}},
        {"beyond the grown list is lost",
         {{u"a"_q, u"t"_q}, {u"b"_q, u""_q}, {u"c"_q, u""_q}},
         {u""_q},
         {u""_q, u"a"_q, u"b"_q}},
        {"without a free row the first stands among the titles",
         {{u"a"_q, u"t"_q}, {u"b"_q, u"t"_q}},
         {u"1"_q, u"2"_q},
         {u"a"_q, u"b"_q, u""_q, u""_q, u""_q}},
        {"an empty list has no free row", {{u"a"_q, u"t"_q}, {u"b"_q, u"t"_q}}, {}, {u"a"_q, u"b"_q, u""_q}},
    };
    for (const Case& each : cases) {
        fpSpread chosen;
        fpSpread recipients;
        FillChosen(chosen, each.chosen);
        FillRecipients(recipients, each.recipients);
        HandOverTo(chosen, recipients);
        EXPECT_EQ(Names(recipients), each.names) << each.what;
    }
}

TEST(HandOver, NameAndNumberAreWrittenTrimmedAndNothingElse)
{
    fpSpread chosen;
    fpSpread recipients;
    FillChosen(chosen, {{u"  a "_q, u"t"_q}});
    chosen.Cells().SetText(ChosenPhone, 1, u" 010-1 "_q);
    FillRecipients(recipients, {u""_q});
    recipients.Cells().SetText(5, 1, u"x"_q);
    HandOverTo(chosen, recipients);
    const QStringList row{u"#1"_q, u"a"_q, u"010-1"_q, u""_q, u"x"_q};
    for (int column = 1; column <= 5; ++column)
        EXPECT_EQ(recipients.Cells().Text(column, 1), row[column - 1]);
    EXPECT_EQ(recipients.Cells().Text(1, 2), QString());
}

TEST(HandOver, AHiddenRowWithoutANumberIsFree)
{
    fpSpread chosen;
    fpSpread recipients;
    FillChosen(chosen, {{u"a"_q, u"t"_q}});
    FillRecipients(recipients, {u"1"_q, u""_q, u""_q});
    recipients.SetRowHidden(2, true);
    HandOverTo(chosen, recipients);
    EXPECT_EQ(recipients.Cells().Text(2, 2), u"a"_q);
    EXPECT_TRUE(recipients.RowHidden(2));
}

TEST(HandOver, NumbersThatAreThereAlreadyAreNotLookedFor)
{
    fpSpread chosen;
    fpSpread recipients;
    FillChosen(chosen, {{u"a"_q, u"t"_q}});
    FillRecipients(recipients, {u"010-a"_q, u""_q});
    HandOverTo(chosen, recipients);
    EXPECT_EQ(recipients.Cells().Text(3, 2), u"010-a"_q);
}

TEST(HandOver, TheGridsDrawAgainBehindIt)
{
    fpSpread chosen;
    fpSpread recipients;
    FillChosen(chosen, {{u"a"_q, u"t"_q}});
    FillRecipients(recipients, {u""_q});
    HandOverTo(chosen, recipients);
    EXPECT_TRUE(recipients.ReDraw());
}

} // namespace
