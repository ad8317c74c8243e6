#include "templates/CardRows.h"

#include <gtest/gtest.h>

#include <QSet>

using namespace tsms;

namespace {

constexpr int Pages = 10;

QList<int> FromTo(int first, int last)
{
    QList<int> rows;
    for (int row = first; row <= last; ++row)
        rows += row;
    return rows;
}

struct PageCase
{
    int lastRow;
    int page;
    int first; ///< row on the first card; 0 when the page is empty
    int last;
};

class CardRowsOfPages : public ::testing::TestWithParam<PageCase>
{
};

TEST_P(CardRowsOfPages, AreThese)
{
    const auto& [lastRow, page, first, last] = GetParam();
    EXPECT_EQ(CardRows(page, lastRow), first == 0 ? QList<int>() : FromTo(first, last));
}

INSTANTIATE_TEST_SUITE_P(
    Table, CardRowsOfPages,
    ::testing::Values(PageCase{0, 0, 0, 0}, PageCase{0, 1, 0, 0}, PageCase{1, 0, 1, 1}, PageCase{1, 1, 0, 0},
                      PageCase{8, 0, 1, 8}, PageCase{8, 1, 0, 0}, PageCase{9, 0, 1, 8}, PageCase{9, 1, 9, 9},
                      PageCase{16, 1, 9, 16}, PageCase{17, 1, 9, 16}, PageCase{17, 2, 0, 0},
                      PageCase{18, 2, 18, 18}, PageCase{26, 2, 18, 25}, PageCase{26, 3, 0, 0},
                      PageCase{27, 3, 27, 27}, PageCase{87, 9, 81, 87}, PageCase{88, 9, 81, 88},
                      PageCase{89, 9, 81, 88}, PageCase{200, 0, 1, 8}, PageCase{200, 1, 9, 16},
                      PageCase{200, 2, 18, 25}, PageCase{200, 3, 27, 34}, PageCase{200, 9, 81, 88}));

TEST(CardRows, EightRowsOfACategoryAreOnNoPageAndNoneIsOnTwo)
{
    QList<int> shown;
    for (int page = 0; page < Pages; ++page)
        shown += CardRows(page, 200);
    QList<int> hidden;
    for (int row = 1; row <= 88; ++row)
        if (!shown.contains(row))
            hidden += row;
    EXPECT_EQ(hidden, QList<int>({17, 26, 35, 44, 53, 62, 71, 80}));
    EXPECT_EQ(shown.size(), 80);
    EXPECT_EQ(QSet<int>(shown.begin(), shown.end()).size(), 80);
}

} // namespace
