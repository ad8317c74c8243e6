#include "toolkit/fields/LimitRule.h"
#include "toolkit/grid/SpreadBench.h"
#include "toolkit/grid/SpreadDelegate.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QToolTip>

namespace tsms::test {

namespace {

using SpreadTest = SpreadBench;

TEST_F(SpreadTest, ATextComesBackAsItWasSet)
{
    grid.Cells().SetText(2, 3, u"홍길동"_q);
    EXPECT_EQ(grid.Cells().Text(2, 3), u"홍길동"_q);
    EXPECT_EQ(Index(2, 3).data().toString(), u"홍길동"_q);
}

TEST_F(SpreadTest, CellsOutsideTheGridReadAsEmptyAndIgnoreTexts)
{
    for (const auto& [col, row] :
         {std::pair{6, 1}, {1, 21}, {-1, 1}, {1, -1}, {0, 21}, {6, 0}, {100000, 100000}}) {
        grid.Cells().SetText(col, row, u"x"_q);
        EXPECT_EQ(grid.Cells().Text(col, row), QString()) << col << "," << row;
    }
    grid.Cells().SetMaxRows(30);
    EXPECT_EQ(grid.Cells().Text(1, 21), QString());
}

TEST_F(SpreadTest, TheHeadingRowTakesTextWhileItIsHidden)
{
    grid.Cells().SetText(3, 0, u"전화번호"_q);
    EXPECT_EQ(grid.Cells().Text(3, 0), u"전화번호"_q);
    EXPECT_EQ(grid.model()->headerData(2, Qt::Horizontal).toString(), u"전화번호"_q);
    EXPECT_FALSE(grid.horizontalHeader()->isVisibleTo(&grid));
}

TEST_F(SpreadTest, ColumnZeroIsTheTitleOfItsRow)
{
    grid.Cells().SetText(0, 2, u"성공"_q);
    EXPECT_EQ(grid.Cells().Text(0, 2), u"성공"_q);
    EXPECT_EQ(grid.model()->headerData(1, Qt::Vertical).toString(), u"성공"_q);
}

TEST_F(SpreadTest, AnUntouchedTitleIsEmpty)
{
    EXPECT_EQ(grid.model()->headerData(0, Qt::Horizontal).toString(), QString());
    EXPECT_EQ(grid.model()->headerData(0, Qt::Vertical).toString(), QString());
}

TEST_F(SpreadTest, AHiddenRowKeepsItsContent)
{
    grid.Cells().SetText(2, 3, u"홍길동"_q);
    grid.SetRowHidden(3, true);
    EXPECT_TRUE(grid.isRowHidden(2));
    EXPECT_TRUE(grid.RowHidden(3));
    EXPECT_EQ(grid.Cells().Text(2, 3), u"홍길동"_q);
    grid.SetRowHidden(3, false);
    EXPECT_FALSE(grid.RowHidden(3));
}

TEST_F(SpreadTest, RowsOutsideTheGridAreNeverHidden)
{
    grid.SetRowHidden(0, true);
    grid.SetRowHidden(21, true);
    EXPECT_FALSE(grid.RowHidden(0));
    EXPECT_FALSE(grid.RowHidden(21));
    grid.Cells().SetMaxRows(21);
    EXPECT_FALSE(grid.RowHidden(21));
}

TEST_F(SpreadTest, RowsThatWereTakenAwayComeBackEmptyAndOnView)
{
    grid.Cells().SetText(2, 20, u"끝"_q);
    grid.SetRowHidden(20, true);
    grid.Cells().SetMaxRows(19);
    grid.Cells().SetMaxRows(20);
    EXPECT_EQ(grid.Cells().Text(2, 20), QString());
    EXPECT_FALSE(grid.RowHidden(20));
}

TEST_F(SpreadTest, ColumnsThatWereTakenAwayComeBackEmpty)
{
    grid.Cells().SetText(4, 1, u"끝"_q);
    grid.Cells().SetMaxCols(3);
    grid.Cells().SetMaxCols(4);
    EXPECT_EQ(grid.Cells().Text(4, 1), QString());
    EXPECT_EQ(grid.Cells().Type(4), CellType::StaticText);
}

TEST_F(SpreadTest, ResetDropsContentFormatsSizesAndHiddenRows)
{
    grid.Cells().SetText(2, 3, u"홍길동"_q);
    grid.Cells().SetText(2, 0, u"이름"_q);
    grid.SetRowHidden(3, true);
    grid.Cells().SetCellPicture(1, 1, 0);
    grid.Cells().SetColors(2, SpreadModel::All, Qt::red, Qt::blue);
    grid.SetDataSource(std::make_shared<CountingSource>(5, 20));
    grid.SetActiveCell(2, 5);
    const double fresh = fpSpread().ColWidth(3);

    grid.Reset();

    EXPECT_EQ(grid.Cells().MaxRows(), SpreadModel::DefaultRows);
    EXPECT_EQ(grid.Cells().MaxCols(), SpreadModel::DefaultCols);
    EXPECT_EQ(grid.Cells().Text(2, 3), QString());
    EXPECT_EQ(grid.Cells().Text(2, 0), QString());
    EXPECT_FALSE(grid.RowHidden(3));
    EXPECT_FALSE(grid.ColHidden(5));
    EXPECT_EQ(grid.Cells().CellPicture(1, 1), -1);
    EXPECT_FALSE(Index(2, 3).data(Qt::BackgroundRole).isValid());
    EXPECT_EQ(grid.Cells().Type(2), CellType::StaticText);
    EXPECT_EQ(grid.ColWidth(3), fresh);
    EXPECT_EQ(grid.columnWidth(2), fpSpread().columnWidth(2));
    EXPECT_EQ(grid.rowHeight(0), fpSpread().rowHeight(0));
    EXPECT_EQ(grid.ActiveCol(), 1);
    EXPECT_EQ(grid.ActiveRow(), 1);
}

TEST_F(SpreadTest, RowHeightsAreInPointsAndTitlesHaveTheirOwn)
{
    grid.SetHeadersVisible(true, false);
    grid.SetRowHeight(0, 15);
    EXPECT_EQ(grid.horizontalHeader()->height(), 20);
    EXPECT_EQ(grid.rowHeight(0), 18);
    EXPECT_EQ(grid.rowHeight(19), 18);
    grid.Cells().SetMaxRows(21);
    EXPECT_EQ(grid.rowHeight(20), 18);
    grid.SetRowHeight(2, 30);
    EXPECT_EQ(grid.rowHeight(1), 40);
    EXPECT_EQ(grid.rowHeight(2), 18);
}

TEST_F(SpreadTest, AColumnOfTenAndAHalfUnitsShowsAWholePhoneNumber)
{
    EXPECT_GE(grid.columnWidth(2), grid.fontMetrics().horizontalAdvance(u"010-1234-5678"_q) + 3);
    EXPECT_EQ(grid.ColWidth(3), 10.5);
}

TEST_F(SpreadTest, WidthsFollowTheFont)
{
    const int before = grid.columnWidth(2);
    QFont larger = grid.font();
    larger.setPointSizeF(larger.pointSizeF() * 2);
    grid.setFont(larger);
    EXPECT_GT(grid.columnWidth(2), before * 3 / 2);
    EXPECT_EQ(grid.ColWidth(3), 10.5);
}

TEST_F(SpreadTest, ColumnsThatFillTheGridAreWidenedInProportion)
{
    const int number = grid.columnWidth(0);
    const int phone = grid.columnWidth(2);
    Show();
    grid.SetFillWidth(true);
    EXPECT_EQ(grid.horizontalHeader()->length(), grid.viewport()->width());
    EXPECT_NEAR(double(grid.columnWidth(2)) / grid.columnWidth(0), double(phone) / number, 0.5);
    grid.resize(280, 300);
    EXPECT_EQ(grid.horizontalHeader()->length(), grid.viewport()->width());
    grid.resize(100, 300);
    EXPECT_EQ(grid.columnWidth(2), phone);
    EXPECT_EQ(grid.ColWidth(3), 10.5);
}

TEST_F(SpreadTest, ABoundGridReadsOnlyWhatIsOnView)
{
    const auto source = std::make_shared<CountingSource>(10, 32000);
    grid.Cells().SetMaxCols(10);
    grid.Cells().SetMaxRows(32000);
    grid.SetDataSource(source);
    EXPECT_EQ(source->reads, 0);
    Show();
    grid.grab();
    EXPECT_GT(source->reads, 10);
    EXPECT_LT(source->reads, 5000);
    EXPECT_EQ(grid.Cells().Text(10, 32000), u"10/32000"_q);
}

TEST_F(SpreadTest, BindingChangesNeitherSize)
{
    grid.SetDataSource(std::make_shared<CountingSource>(9, 50));
    EXPECT_EQ(grid.Cells().MaxRows(), 20);
    EXPECT_EQ(grid.Cells().MaxCols(), 5);
}

TEST_F(SpreadTest, ASetTextOverridesABoundCellAndTheNextSourceTakesItAway)
{
    grid.SetDataSource(std::make_shared<CountingSource>(3, 20));
    grid.Cells().SetText(2, 2, QString());
    EXPECT_EQ(grid.Cells().Text(2, 2), QString());
    EXPECT_EQ(grid.Cells().Text(2, 3), u"2/3"_q);
    grid.Cells().SetText(5, 2, u"beside"_q);
    grid.Cells().SetText(2, 0, u"title"_q);
    grid.SetDataSource(std::make_shared<CountingSource>(3, 20, u"new "_q));
    EXPECT_EQ(grid.Cells().Text(2, 2), u"new 2/2"_q);
    EXPECT_EQ(grid.Cells().Text(5, 2), u"beside"_q);
    EXPECT_EQ(grid.Cells().Text(2, 0), u"title"_q);
}

TEST_F(SpreadTest, RowsThatWereTakenAwayAreNotReadFromTheSourceAgain)
{
    grid.SetDataSource(std::make_shared<CountingSource>(5, 20));
    grid.Cells().SetMaxRows(0);
    grid.Cells().SetMaxRows(20);
    EXPECT_EQ(grid.Cells().Text(2, 1), QString());
    grid.SetDataSource(std::make_shared<CountingSource>(5, 20));
    EXPECT_EQ(grid.Cells().Text(2, 1), u"2/1"_q);
}

TEST_F(SpreadTest, ASourceLetGoLeavesEmptyCells)
{
    grid.SetDataSource(std::make_shared<CountingSource>(5, 20));
    grid.SetDataSource(nullptr);
    EXPECT_EQ(grid.Cells().Text(2, 1), QString());
    EXPECT_EQ(grid.Cells().MaxRows(), 20);
}

TEST_F(SpreadTest, AMarkCellAnswersWithItsPictureAndItsIndex)
{
    QPixmap red(16, 16);
    red.fill(Qt::red);
    grid.Cells().SetPictures({QIcon(), QIcon(red)});
    EXPECT_FALSE(Index(2, 2).data(Qt::UserRole).isValid());
    EXPECT_FALSE(Index(2, 2).data(Qt::DecorationRole).isValid());
    grid.Cells().SetCellPicture(2, 2, 1);
    EXPECT_EQ(grid.Cells().CellPicture(2, 2), 1);
    EXPECT_EQ(Index(2, 2).data(Qt::UserRole).toInt(), 1);
    const auto icon = Index(2, 2).data(Qt::DecorationRole).value<QIcon>();
    EXPECT_EQ(icon.pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
}

TEST_F(SpreadTest, APictureIsDrawnInPlaceOfTheText)
{
    QPixmap red(16, 16);
    red.fill(Qt::red);
    grid.Cells().SetPictures({QIcon(red)});
    grid.Cells().SetText(3, 2, u"2"_q);
    grid.Cells().SetCellPicture(3, 2, 0);
    Show();
    const QImage seen = grid.viewport()->grab().toImage();
    EXPECT_EQ(seen.pixelColor(Place(3, 2)), QColor(Qt::red));
    EXPECT_EQ(grid.Cells().Text(3, 2), u"2"_q);
}

TEST_F(SpreadTest, AColumnsPictureIsThatOfEveryRowAlsoOfLaterOnes)
{
    grid.Cells().SetCellPicture(2, 3, 0);
    grid.Cells().SetCellPicture(2, SpreadModel::All, 1);
    grid.Cells().SetMaxRows(21);
    EXPECT_EQ(grid.Cells().CellPicture(2, 3), 1);
    EXPECT_EQ(grid.Cells().CellPicture(2, 21), 1);
    grid.Cells().SetCellPicture(2, 21, 0);
    EXPECT_EQ(grid.Cells().CellPicture(2, 21), 0);
    grid.Cells().SetCellPicture(2, 21, -1);
    EXPECT_EQ(grid.Cells().CellPicture(2, 21), -1);
    EXPECT_EQ(grid.Cells().CellPicture(2, 0), -1);
    EXPECT_EQ(grid.Cells().CellPicture(2, 22), -1);
}

TEST_F(SpreadTest, PicturesStayOnTheirRowsWhileTextsChange)
{
    grid.Cells().SetCellPicture(2, 3, 1);
    grid.Cells().SetMaxRows(10);
    for (int row = 1; row <= 10; ++row)
        grid.Cells().SetText(2, row, QString::number(row));
    EXPECT_EQ(grid.Cells().CellPicture(2, 3), 1);
}

TEST_F(SpreadTest, ACellsColoursGoBeforeItsRowsAndTheseBeforeItsColumns)
{
    const auto back = [&](int col, int row) {
        return Index(col, row).data(Qt::BackgroundRole).value<QColor>();
    };
    grid.Cells().SetColors(2, SpreadModel::All, Qt::red, Qt::white);
    grid.Cells().SetColors(SpreadModel::All, 3, Qt::green, QColor());
    grid.Cells().SetColors(2, 4, Qt::blue, Qt::black);
    EXPECT_EQ(back(2, 1), QColor(Qt::red));
    EXPECT_EQ(back(2, 3), QColor(Qt::green));
    EXPECT_EQ(back(2, 4), QColor(Qt::blue));
    EXPECT_EQ(Index(2, 3).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::white));
    EXPECT_FALSE(Index(1, 1).data(Qt::BackgroundRole).isValid());
}

TEST_F(SpreadTest, ARowsColoursTakeItsTitleAlong)
{
    grid.Cells().SetColors(SpreadModel::All, 2, QColor(232, 236, 243), QColor(0, 0, 255));
    EXPECT_EQ(grid.model()->headerData(1, Qt::Vertical, Qt::ForegroundRole).value<QColor>(),
              QColor(0, 0, 255));
}

TEST_F(SpreadTest, ColoursForEverythingTakeAllOthersAway)
{
    grid.Cells().SetColors(2, 4, Qt::blue, Qt::black);
    grid.Cells().SetColors(SpreadModel::All, 4, Qt::green, Qt::black);
    grid.Cells().SetColors(SpreadModel::All, SpreadModel::All, Qt::white, Qt::black);
    EXPECT_EQ(Index(2, 4).data(Qt::BackgroundRole).value<QColor>(), QColor(Qt::white));
}

TEST_F(SpreadTest, AColumnOfNumbersGroupsItsDigitsOnTheScreenOnly)
{
    grid.Cells().SetNumber(5, true);
    grid.Cells().SetText(5, 1, u"1234567"_q);
    const auto& delegate = static_cast<const SpreadDelegate&>(*grid.itemDelegate());
    EXPECT_EQ(delegate.ShownText(Index(5, 1)), u"1,234,567"_q);
    EXPECT_EQ(grid.Cells().Text(5, 1), u"1234567"_q);
    EXPECT_TRUE(grid.Cells().IsNumber(5));
    EXPECT_EQ(Index(5, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
}

TEST_F(SpreadTest, ATextThatACellHoldsAlreadyIsNoChange)
{
    grid.Cells().SetText(2, 1, u"one"_q);
    grid.Cells().SetText(2, 2, QString());
    const QSignalSpy changes(grid.model(), &QAbstractItemModel::dataChanged);
    grid.Cells().SetText(2, 1, u"one"_q);
    grid.Cells().SetText(2, 2, QString());
    EXPECT_EQ(changes.size(), 0);
    grid.Cells().SetText(2, 1, u"two"_q);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadTest, AnEmptyTextOverridesABoundCellThatHadNoneOfItsOwn)
{
    grid.SetDataSource(std::make_shared<CountingSource>(3, 20));
    grid.Cells().SetText(2, 2, u""_q);
    EXPECT_EQ(grid.Cells().Text(2, 2), QString());
}

TEST_F(SpreadTest, ChangesInOneGoAreAnnouncedWhenTheyAreDone)
{
    const QSignalSpy changes(grid.model(), &QAbstractItemModel::dataChanged);
    grid.InOneGo([&] {
        grid.Cells().SetText(2, 1, u"one"_q);
        grid.Cells().SetText(2, 2, u"two"_q);
        EXPECT_EQ(changes.size(), 0);
    });
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SpreadTest, ChangesInOneGoThatRaiseLeaveTheGridDrawing)
{
    EXPECT_THROW(grid.InOneGo([] { throw 1; }), int);
    EXPECT_TRUE(grid.ReDraw());
}

TEST_F(SpreadTest, ChangesInOneGoLeaveAGridThatDoesNotDrawAsItIs)
{
    grid.SetReDraw(false);
    grid.InOneGo([] {});
    EXPECT_FALSE(grid.ReDraw());
}

TEST_F(SpreadTest, WithoutReDrawNoChangeIsAnnouncedUntilItIsOnAgain)
{
    const QSignalSpy changes(grid.model(), &QAbstractItemModel::dataChanged);
    grid.SetReDraw(false);
    grid.Cells().SetText(2, 1, u"x"_q);
    grid.Cells().SetCellPicture(1, 1, 0);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_FALSE(grid.ReDraw());
    grid.SetReDraw(true);
    EXPECT_EQ(changes.count(), 1);
    grid.Cells().SetText(2, 1, u"y"_q);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(SpreadTest, TheActiveCellIsTheFirstUntilSomethingMakesAnotherOneActive)
{
    EXPECT_EQ(grid.ActiveCol(), 1);
    EXPECT_EQ(grid.ActiveRow(), 1);
    grid.SetActiveCell(3, 7);
    EXPECT_EQ(grid.ActiveCol(), 3);
    EXPECT_EQ(grid.ActiveRow(), 7);
    EXPECT_EQ(grid.currentIndex(), Index(3, 7));
}

TEST_F(SpreadTest, AGridWithoutRowsHasItsFirstCellActive)
{
    grid.SetActiveCell(3, 7);
    grid.Cells().SetMaxRows(0);
    EXPECT_EQ(grid.ActiveRow(), 1);
    grid.Cells().SetMaxRows(5);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_TRUE(grid.currentIndex().isValid());
}

TEST_F(SpreadTest, ACellOutsideTheGridOrInAHiddenColumnNeverBecomesActive)
{
    grid.SetActiveCell(3, 20);
    for (const auto& [col, row] : {std::pair{2, 21}, {6, 1}, {0, 1}, {1, 0}, {5, 3}}) {
        grid.SetActiveCell(col, row);
        EXPECT_EQ(grid.ActiveCol(), 3) << col << "," << row;
        EXPECT_EQ(grid.ActiveRow(), 20) << col << "," << row;
    }
}

TEST_F(SpreadTest, AHiddenRowIsPassedOverOnTheWayDown)
{
    grid.SetRowHidden(4, true);
    grid.SetRowHidden(5, true);
    grid.SetActiveCell(2, 4);
    EXPECT_EQ(grid.ActiveRow(), 6);
}

TEST_F(SpreadTest, HidingTheActiveRowLeavesItActive)
{
    grid.SetActiveCell(4, 3);
    grid.SetRowHidden(3, true);
    EXPECT_EQ(grid.ActiveRow(), 3);
}

TEST_F(SpreadTest, HidingTheColumnOfTheActiveCellMovesItToTheFirstOnView)
{
    grid.SetActiveCell(1, 3);
    grid.SetColHidden(1, true);
    EXPECT_EQ(grid.ActiveCol(), 2);
    EXPECT_EQ(grid.ActiveRow(), 3);
}

TEST_F(SpreadTest, TheLastColumnOnViewHasTheRoomThatIsLeft)
{
    const int third = grid.columnWidth(2);
    Show();
    EXPECT_EQ(grid.horizontalHeader()->length(), grid.viewport()->width());
    EXPECT_EQ(grid.columnWidth(2), third);
    EXPECT_EQ(grid.ColWidth(4), 1.5);
    grid.setColumnWidth(2, third - 30); // as a person does, by its title
    EXPECT_EQ(grid.horizontalHeader()->length(), grid.viewport()->width());
    grid.resize(220, 300);
    EXPECT_EQ(grid.horizontalHeader()->length(), grid.viewport()->width());
    grid.resize(100, 300);
    EXPECT_GT(grid.horizontalHeader()->length(), 100);
}

TEST_F(SpreadTest, TheLastColumnHasTheRoomThatIsLeftAlsoWhileThereAreNoRows)
{
    grid.Cells().SetMaxRows(0);
    Show();
    EXPECT_EQ(grid.horizontalHeader()->length(), grid.viewport()->width());
}

TEST_F(SpreadTest, TheActiveCellWearsTheFocusColourWhileTheGridHasTheFocus)
{
    Show();
    grid.SetActiveCell(3, 2);
    const QPoint inside = grid.visualRect(Index(3, 2)).topLeft() + QPoint(3, 3);
    EXPECT_EQ(grid.viewport()->grab().toImage().pixelColor(inside), QColor(255, 224, 192));
    next.setFocus();
    EXPECT_EQ(grid.viewport()->grab().toImage().pixelColor(inside), QColor(255, 255, 255));
}

TEST_F(SpreadTest, ARowCursorTintsTheWholeActiveRow)
{
    Show();
    grid.SetRowCursor(true);
    grid.SetActiveCell(3, 2);
    const QPoint beside = grid.visualRect(Index(2, 2)).topLeft() + QPoint(3, 3);
    EXPECT_NE(grid.viewport()->grab().toImage().pixelColor(beside), QColor(255, 255, 255));
    grid.SetActiveCell(3, 3);
    EXPECT_EQ(grid.viewport()->grab().toImage().pixelColor(beside), QColor(255, 255, 255));
}

TEST_F(SpreadTest, LinesAreDrawnInTheGridsColour)
{
    Show();
    grid.SetGridColor(QColor(1, 2, 3));
    const QRect cell = grid.visualRect(Index(3, 5));
    const QImage seen = grid.viewport()->grab().toImage();
    EXPECT_EQ(seen.pixelColor(cell.right(), cell.center().y()), QColor(1, 2, 3));
    EXPECT_EQ(seen.pixelColor(cell.center().x(), cell.bottom()), QColor(1, 2, 3));
}

TEST_F(SpreadTest, TenThousandRowsCanBeFilledAndHidden)
{
    Show();
    grid.SetReDraw(false);
    grid.Cells().SetMaxRows(10000);
    for (int row = 1; row <= 10000; ++row) {
        for (int col = 1; col <= 3; ++col)
            grid.Cells().SetText(col, row, u"010-1234-5678"_q);
    }
    grid.SetReDraw(true);
    EXPECT_EQ(grid.Cells().Text(3, 10000), u"010-1234-5678"_q);
    for (int row = 1; row <= 10000; row += 2)
        grid.SetRowHidden(row, true);
    EXPECT_TRUE(grid.isRowHidden(9998));
    EXPECT_FALSE(grid.isRowHidden(9999));
}

TEST_F(SpreadTest, OfAMillionCharactersInACellTheToolTipTakesABeginning)
{
    Show();
    grid.Cells().SetText(2, 1, QString(1'000'000, u'가'));
    QHelpEvent event(QEvent::ToolTip, Place(2, 1), grid.viewport()->mapToGlobal(Place(2, 1)));
    QApplication::sendEvent(grid.viewport(), &event);
    EXPECT_EQ(QToolTip::text().count(u'가'), MostGiven);
    QToolTip::hideText();
}

} // namespace

} // namespace tsms::test
