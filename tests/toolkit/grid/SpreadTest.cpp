#include "support/Words.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/SpreadDelegate.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include <algorithm>

namespace tsms::test {

namespace {

using CellType = SpreadModel::CellType;

/// Cells that say where they are, and how often they were read.
class CountingSource final : public CellSource
{
public:
    CountingSource(int cols, int rows, QString mark = QString())
        : cols_(cols), rows_(rows), mark_(std::move(mark))
    {
    }
    int Rows() const override { return rows_; }
    int Cols() const override { return cols_; }
    QString Text(int col, int row) const override
    {
        ++reads;
        return QStringLiteral("%1%2/%3").arg(mark_).arg(col).arg(row);
    }
    mutable int reads = 0;

private:
    int cols_;
    int rows_;
    QString mark_;
};

/// A surface that counts the presses that fall through to it.
class Surface : public QWidget
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

/// A grid as the recipient list has it: a number, two edit columns, a button, a hidden column.
class SpreadTest : public ::testing::Test
{
protected:
    SpreadTest()
    {
        grid.setGeometry(10, 10, 300, 300);
        next.setGeometry(10, 320, 100, 24);
        surface.resize(320, 360);
        grid.SetHeadersVisible(false, false);
        grid.Cells().SetMaxRows(20);
        grid.Cells().SetMaxCols(5);
        grid.SetColWidth(1, 2);
        grid.SetColWidth(2, 5);
        grid.SetColWidth(3, 10.5);
        grid.SetColWidth(4, 1.5);
        grid.SetRowHeight(SpreadModel::All, 13.5);
        grid.Cells().SetType(2, CellType::Edit);
        grid.Cells().SetMaxLength(2, 6);
        grid.Cells().SetType(3, CellType::Edit);
        grid.Cells().SetMaxLength(3, 13);
        grid.Cells().SetButton(4, u"x"_q, QColor(182, 204, 211), Qt::white);
        grid.SetColHidden(5, true);
    }

    void Show()
    {
        surface.show();
        surface.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&surface));
        grid.setFocus();
    }

    QModelIndex Index(int col, int row) const { return grid.model()->index(row - 1, col - 1); }
    QPoint Place(int col, int row) const { return grid.visualRect(Index(col, row)).center(); }
    void ClickOn(int col, int row)
    {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Place(col, row));
    }
    /// Press, release, double click, release: what a window gets of a double click.
    void DoubleClickOn(int col, int row)
    {
        const QPoint place = Place(col, row);
        ClickOn(col, row);
        QMouseEvent second(QEvent::MouseButtonDblClick, place, grid.viewport()->mapToGlobal(place),
                           Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(grid.viewport(), &second);
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, place);
    }
    /// As fast as a hand does it: each second press comes as a double click.
    void MultiClickOn(int col, int row, int times)
    {
        const QPoint place = Place(col, row);
        for (int i = 0; i < times; ++i) {
            pressTime += 100;
            for (const auto type : {i % 2 == 0 ? QEvent::MouseButtonPress : QEvent::MouseButtonDblClick,
                                    QEvent::MouseButtonRelease}) {
                QMouseEvent event(type, place, grid.viewport()->mapToGlobal(place), Qt::LeftButton,
                                  Qt::LeftButton, Qt::NoModifier);
                event.setTimestamp(pressTime);
                QCoreApplication::sendEvent(grid.viewport(), &event);
            }
        }
    }
    quint64 pressTime = 100000; // milliseconds

    bool IsEditing() const
    {
        const auto editors = grid.viewport()->findChildren<QLineEdit*>();
        return std::any_of(editors.begin(), editors.end(),
                           [](const QLineEdit* editor) { return editor->isVisible(); });
    }

    void Press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void Type(const char* keys)
    {
        for (; *keys; ++keys)
            QTest::keyClick(QApplication::focusWidget(), *keys);
    }
    void Commit(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }

    Surface surface;
    fpSpread grid{&surface};
    QLineEdit next{&surface};
};

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

TEST_F(SpreadTest, AClickMakesTheCellActiveAndIsReportedOnce)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    int activeThen = 0;
    QObject::connect(&grid, &fpSpread::Click, &grid, [&] { activeThen = grid.ActiveRow(); });
    ClickOn(3, 5);
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 3);
    EXPECT_EQ(clicks[0][1].toInt(), 5);
    EXPECT_EQ(activeThen, 5);
    EXPECT_FALSE(IsEditing());
}

TEST_F(SpreadTest, AButtonReleasedOnAnotherCellIsNoClick)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, Place(4, 2));
    QTest::mouseMove(grid.viewport(), Place(4, 3));
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, Place(4, 3));
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(grid.ActiveRow(), 2);
}

TEST_F(SpreadTest, OtherButtonsClickNothing)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, Place(4, 2));
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(grid.ActiveRow(), 1);
}

TEST_F(SpreadTest, AClickBesideTheCellsIsNone)
{
    Show();
    grid.Cells().SetMaxRows(2);
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(20, 200));
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(SpreadTest, PressesNeverFallThroughToTheWindow)
{
    Show();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Place(1, 1));
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, Place(1, 1));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(290, 290));
    EXPECT_EQ(surface.presses, 0);
}

TEST_F(SpreadTest, ADoubleClickIsOneClickAndOneDoubleClick)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QSignalSpy doubles(&grid, &fpSpread::DblClick);
    DoubleClickOn(1, 4);
    EXPECT_EQ(clicks.count(), 1);
    ASSERT_EQ(doubles.count(), 1);
    EXPECT_EQ(doubles[0][0].toInt(), 1);
    EXPECT_EQ(doubles[0][1].toInt(), 4);
}

TEST_F(SpreadTest, OfADoubleAndATripleClickAButtonTakesTheFirst)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QSignalSpy doubles(&grid, &fpSpread::DblClick);
    QObject::connect(&grid, &fpSpread::Click, &grid, [this](int, int row) { grid.SetRowHidden(row, true); });
    MultiClickOn(4, 4, 3);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(doubles.count(), 0);
    EXPECT_TRUE(grid.RowHidden(4));
    EXPECT_FALSE(grid.RowHidden(5));
}

TEST_F(SpreadTest, AButtonTakesTheNextClickAgain)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    MultiClickOn(4, 4, 2);
    pressTime += QApplication::doubleClickInterval();
    MultiClickOn(4, 4, 1);
    MultiClickOn(4, 8, 1);
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(SpreadTest, ASecondClickOnACellThatAKeyHasLeftIsAFirst)
{
    Show();
    QSignalSpy doubles(&grid, &fpSpread::DblClick);
    MultiClickOn(2, 4, 1);
    Press(Qt::Key_Down);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, Place(2, 4));
    EXPECT_EQ(doubles.count(), 0);
    EXPECT_EQ(grid.ActiveRow(), 4);
    EXPECT_FALSE(IsEditing());
}

TEST_F(SpreadTest, ADoubleClickOnATitleIsOneOfRowZero)
{
    grid.SetHeadersVisible(true, false);
    Show();
    QSignalSpy doubles(&grid, &fpSpread::DblClick);
    QWidget* titles = grid.horizontalHeader()->viewport();
    for (const int beyond : {20, 1}) { // the second is the border between two titles
        const QPoint place(grid.columnViewportPosition(3) - beyond, 5);
        QTest::mouseClick(titles, Qt::LeftButton, {}, place);
        QTest::mouseDClick(titles, Qt::LeftButton, {}, place);
    }
    ASSERT_EQ(doubles.count(), 2);
    EXPECT_EQ(doubles[0], QVariantList({3, 0}));
    EXPECT_EQ(doubles[1], QVariantList({3, 0}));
}

TEST_F(SpreadTest, ADoubleClickBesideTheCellsIsOneOfNoCell)
{
    Show();
    grid.Cells().SetMaxRows(2);
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QSignalSpy doubles(&grid, &fpSpread::DblClick);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(20, 200));
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, QPoint(20, 200));
    EXPECT_EQ(clicks.count(), 0);
    ASSERT_EQ(doubles.count(), 1);
    EXPECT_EQ(doubles[0], QVariantList({-1, -1}));
}

TEST_F(SpreadTest, AClickMayEndTheGrid)
{
    Show();
    auto* dying = new fpSpread(&surface);
    dying->setGeometry(0, 0, 200, 200);
    dying->show();
    const QPointer<fpSpread> alive(dying);
    QObject::connect(dying, &fpSpread::Click, dying, [dying] { delete dying; });
    QTest::mouseClick(dying->viewport(), Qt::LeftButton, {},
                      dying->visualRect(dying->model()->index(1, 0)).center());
    EXPECT_TRUE(alive.isNull());
}

TEST_F(SpreadTest, AButtonColumnBearsItsCaptionInEveryRow)
{
    EXPECT_EQ(grid.Cells().Text(4, 20), u"x"_q);
    EXPECT_EQ(Index(4, 1).data().toString(), u"x"_q);
}

TEST_F(SpreadTest, TheSpaceBarPressesAButtonCell)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    grid.SetActiveCell(4, 3);
    Press(Qt::Key_Space);
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 4);
    EXPECT_EQ(clicks[0][1].toInt(), 3);
}

TEST_F(SpreadTest, TheSpaceBarPressesNothingInARemovedRow)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    grid.SetActiveCell(4, 3);
    grid.SetRowHidden(3, true);
    Press(Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(SpreadTest, WithoutSpaceClicksTheSpaceBarDoesNothingInCellsWithoutTextEntry)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    grid.SetSpaceClicks(false);
    for (const int col : {1, 4}) {
        grid.SetActiveCell(col, 3);
        Press(Qt::Key_Space);
        EXPECT_EQ(grid.ActiveCol(), col);
    }
    EXPECT_EQ(clicks.count(), 0);
    grid.SetActiveCell(2, 3);
    Press(Qt::Key_Space);
    EXPECT_TRUE(IsEditing());
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 3), u" "_q);
}

TEST_F(SpreadTest, ResetTurnsSpaceClicksOnAgain)
{
    grid.SetSpaceClicks(false);
    grid.Reset();
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    Press(Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(SpreadTest, ArrowsWalkFromCellToCellPastHiddenRows)
{
    Show();
    grid.SetActiveCell(2, 1);
    grid.SetRowHidden(2, true);
    Press(Qt::Key_Down);
    EXPECT_EQ(grid.ActiveRow(), 3);
    Press(Qt::Key_Right);
    EXPECT_EQ(grid.ActiveCol(), 3);
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(grid.ActiveCol(), 4);
    Press(Qt::Key_Up);
    Press(Qt::Key_Left);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(grid.ActiveCol(), 3);
}

TEST_F(SpreadTest, TypingReplacesTheTextOfAnEditCell)
{
    Show();
    grid.Cells().SetText(3, 2, u"010-1111-2222"_q);
    grid.SetActiveCell(3, 2);
    Type("019");
    EXPECT_TRUE(IsEditing());
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 2), u"019"_q);
    EXPECT_FALSE(IsEditing());
    EXPECT_TRUE(grid.hasFocus());
}

TEST_F(SpreadTest, WhatAnInputMethodCommitsReplacesTheTextToo)
{
    Show();
    grid.Cells().SetText(2, 2, u"김구"_q);
    grid.SetActiveCell(2, 2);
    Commit(u"홍"_q);
    Commit(u"길동"_q);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 2), u"홍길동"_q);
}

TEST_F(SpreadTest, AnInputMethodMayComposeBeforeItCommits)
{
    Show();
    grid.SetActiveCell(2, 2);
    EXPECT_TRUE(grid.testAttribute(Qt::WA_InputMethodEnabled));
    grid.Cells().SetText(2, 2, u"김구"_q);
    for (const QString& composed : {u"ㅎ"_q, u"호"_q, u"홍"_q}) {
        QInputMethodEvent composing(composed, {});
        QCoreApplication::sendEvent(QApplication::focusWidget(), &composing);
    }
    EXPECT_EQ(grid.Cells().Text(2, 2), u"김구"_q);
    Commit(u"홍"_q);
    Commit(u"길동"_q);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 2), u"홍길동"_q);
}

TEST_F(SpreadTest, TypingInAStaticCellDoesNothing)
{
    Show();
    grid.Cells().SetText(1, 1, u"01"_q);
    grid.Cells().SetText(1, 5, u"05"_q);
    Type("05");
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(grid.Cells().Text(1, 1), u"01"_q);
}

TEST_F(SpreadTest, TypingStopsAtTheCharacterLimit)
{
    Show();
    grid.SetActiveCell(2, 1);
    Type("abcdefg");
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"abcdef"_q);
    grid.SetActiveCell(3, 1);
    Type("01012345678901");
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"0101234567890"_q);
}

TEST_F(SpreadTest, AnInputMethodStopsAtTheCharacterLimit)
{
    Show();
    grid.SetActiveCell(2, 1);
    Commit(u"가나다라"_q);
    Commit(u"마바사아"_q);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"가나다라마바"_q);
}

TEST_F(SpreadTest, APasteIntoTheCellOrItsEditorIsCutAtTheLimit)
{
    Show();
    QApplication::clipboard()->setText(QString(100000, u'가'));
    grid.SetActiveCell(2, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid.Cells().Text(2, 1), u"가가가가가가"_q);
    grid.SetActiveCell(2, 2);
    Press(Qt::Key_F2);
    ASSERT_TRUE(IsEditing());
    Press(Qt::Key_V, Qt::ControlModifier);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 2), u"가가가가가가"_q);
}

/// Something put into the middle of the full cell (2, 1), "abcdef".
class FullCell : public SpreadTest
{
protected:
    void Open()
    {
        Show();
        grid.Cells().SetText(2, 1, u"abcdef"_q);
        grid.SetActiveCell(2, 1);
        Press(Qt::Key_F2);
        editor = qobject_cast<QLineEdit*>(grid.indexWidget(grid.currentIndex()));
        ASSERT_NE(editor, nullptr);
        editor->setCursorPosition(2);
    }

    QLineEdit* editor = nullptr;
};

TEST_F(FullCell, KeepsItsEndWhenSomethingIsTypedIntoItsMiddle)
{
    Open();
    Type("x");
    EXPECT_EQ(editor->text(), u"abcdef"_q);
    EXPECT_EQ(editor->cursorPosition(), 2);
    editor->setSelection(2, 1);
    Type("xy");
    EXPECT_EQ(editor->cursorPosition(), 3);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"abxdef"_q);
}

TEST_F(FullCell, TakesOfAPasteWhatFitsInPlaceOfTheSelection)
{
    Open();
    editor->setSelection(1, 2);
    QApplication::clipboard()->setText(u"12345"_q);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(editor->cursorPosition(), 3);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"a12def"_q);
}

TEST_F(FullCell, TakesOfACommitWhatFitsInPlaceOfTheSelection)
{
    Open();
    editor->setSelection(1, 2);
    Commit(u"가나다"_q);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"a가나def"_q);
}

TEST_F(SpreadTest, TheLimitHalvesNoPairOfUnits)
{
    Show();
    const QString pairs = u"😀😀😀😀"_q; // two units each
    grid.SetActiveCell(3, 1);
    for (int i = 0; i < 2; ++i)
        Commit(pairs);
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"😀😀😀😀😀😀"_q);
    grid.SetActiveCell(3, 2);
    QApplication::clipboard()->setText(pairs + pairs);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"😀😀😀😀😀😀"_q);
}

TEST_F(SpreadTest, ATextBeyondTheLimitIsCutByNoLookAtIt)
{
    Show();
    grid.Cells().SetText(2, 1, u"abcdefgh"_q);
    grid.SetActiveCell(2, 1);
    Press(Qt::Key_F2);
    ASSERT_TRUE(IsEditing());
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(2, 1), u"abcdefgh"_q);
}

TEST_F(SpreadTest, OfAPastedTextACellTakesTheFirstLine)
{
    Show();
    QApplication::clipboard()->setText(u"홍길동\r\n김구"_q);
    grid.SetActiveCell(2, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid.Cells().Text(2, 1), u"홍길동"_q);
}

TEST_F(SpreadTest, TheOwnerIsOfferedAPasteFirstOnWhateverCell)
{
    Show();
    QStringList offered;
    bool takes = true;
    grid.OnPaste = [&](const QString& text) {
        offered += text;
        return takes;
    };
    QApplication::clipboard()->setText(u"가\n나"_q);
    for (int column : {1, 2}) {
        grid.SetActiveCell(column, 1);
        Press(Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(offered, QStringList({u"가\n나"_q, u"가\n나"_q}));
    EXPECT_EQ(grid.Cells().Text(2, 1), QString());
    takes = false;
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid.Cells().Text(2, 1), u"가"_q);
}

TEST_F(SpreadTest, APasteIntoAStaticCellDoesNothing)
{
    Show();
    QApplication::clipboard()->setText(u"x"_q);
    grid.Cells().SetText(1, 1, u"01"_q);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    EXPECT_EQ(grid.Cells().Text(1, 1), u"01"_q);
}

TEST_F(SpreadTest, CopyAndCutTakeTheTextOfTheActiveCell)
{
    Show();
    grid.Cells().SetText(3, 1, u"010"_q);
    grid.SetActiveCell(3, 1);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"010"_q);
    EXPECT_EQ(grid.Cells().Text(3, 1), u"010"_q);
    grid.Cells().SetText(3, 1, u"011"_q);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"011"_q);
    EXPECT_EQ(grid.Cells().Text(3, 1), QString());
}

/// Rows 1 to 5 with a number, a name, a phone number and a hidden value each.
class SpreadBlock : public SpreadTest
{
protected:
    void Open()
    {
        Show();
        for (int row = 1; row <= 5; ++row) {
            grid.Cells().SetText(1, row, u"0%1"_q.arg(row));
            grid.Cells().SetText(2, row, u"이름%1"_q.arg(row));
            grid.Cells().SetText(3, row, u"010-%1"_q.arg(row));
            grid.Cells().SetText(5, row, u"숨김"_q);
        }
        QApplication::clipboard()->setText(u"before"_q);
    }
    void Drag(int col, int row, int toCol, int toRow)
    {
        QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, Place(col, row));
        QTest::mouseMove(grid.viewport(), Place(toCol, toRow));
        QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, Place(toCol, toRow));
    }
    QString Copied()
    {
        Press(Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text();
    }
    QMenu* AskForMenu(QContextMenuEvent::Reason reason, QPoint place = {})
    {
        QContextMenuEvent ask(reason, place, grid.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(reason == QContextMenuEvent::Mouse ? grid.viewport() : &grid, &ask);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    /// The words of its entries, those in brackets that cannot be chosen.
    static QStringList Entries(const QMenu& menu)
    {
        QStringList words;
        for (const QAction* entry : menu.actions())
            words += entry->isEnabled() ? entry->text() : u"("_q + entry->text() + u")"_q;
        return words;
    }
};

TEST_F(SpreadBlock, ADragSelectsItAndTheCellOfThePressStaysTheActiveOne)
{
    Open();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    Drag(2, 2, 3, 3);
    EXPECT_EQ(grid.ActiveCol(), 2);
    EXPECT_EQ(grid.ActiveRow(), 2);
    EXPECT_EQ(Copied(), u"이름2\t010-2\n이름3\t010-3"_q);
    EXPECT_EQ(clicks.count(), 0);
    Drag(3, 3, 2, 2);
    EXPECT_EQ(Copied(), u"이름2\t010-2\n이름3\t010-3"_q);
}

TEST_F(SpreadBlock, ADragBeyondTheCellsEndsAtTheLastOnView)
{
    Open();
    grid.Cells().SetMaxRows(3);
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, Place(3, 2));
    QTest::mouseMove(grid.viewport(), QPoint(290, 290));
    EXPECT_EQ(Copied(), u"010-2\n010-3"_q);
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, QPoint(290, 290));
}

TEST_F(SpreadBlock, AnUnsteadyClickSelectsItsCellAlone)
{
    Open();
    const QPoint rim = grid.visualRect(Index(3, 2)).bottomLeft() + QPoint(10, 0);
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, rim);
    QTest::mouseMove(grid.viewport(), rim + QPoint(0, 2));
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, rim + QPoint(0, 2));
    EXPECT_EQ(Copied(), u"010-2"_q);
}

TEST_F(SpreadBlock, ShiftAndAClickSelectsItAndIsNoClick)
{
    Open();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    grid.SetActiveCell(3, 1);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ShiftModifier, Place(3, 3));
    EXPECT_EQ(Copied(), u"010-1\n010-2\n010-3"_q);
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(grid.ActiveRow(), 1);
    ClickOn(3, 2);
    EXPECT_EQ(Copied(), u"010-2"_q);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(SpreadBlock, ShiftAndAClickOnAMarkIsAClick)
{
    Open();
    grid.Cells().SetType(2, SpreadModel::CellType::Picture);
    QSignalSpy clicks(&grid, &fpSpread::Click);
    grid.SetActiveCell(3, 1);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ShiftModifier, Place(2, 3));
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0], (QVariantList{2, 3}));
    EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(SpreadBlock, AMoveWithoutTheButtonEndsADragWhoseReleaseWentElsewhere)
{
    Open();
    const auto move = [this](int col, int row, Qt::MouseButtons held) {
        const QPoint place = Place(col, row);
        QMouseEvent event(QEvent::MouseMove, place, grid.viewport()->mapToGlobal(place), Qt::NoButton, held,
                          {});
        QCoreApplication::sendEvent(grid.viewport(), &event);
    };
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, Place(2, 2));
    move(3, 2, Qt::LeftButton);
    move(3, 3, Qt::NoButton);
    move(3, 4, Qt::LeftButton); // held since somewhere else
    EXPECT_EQ(Copied(), u"이름2\t010-2"_q);
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, Place(2, 2));
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(SpreadBlock, ShiftAndTheKeysThatWalkMoveItsFarCorner)
{
    Open();
    grid.SetRowHidden(3, true);
    grid.SetActiveCell(3, 2);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Copied(), u"010-2\n010-4"_q);
    Press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(Copied(), u"이름2\t010-2\n이름4\t010-4"_q);
    Press(Qt::Key_Up, Qt::ShiftModifier);
    Press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Copied(), u"이름1\t010-1\n이름2\t010-2"_q);
    Press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(Copied(), u"01\t이름1\t010-1\n02\t이름2\t010-2"_q);
    Press(Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(Copied(), u"010-1\n010-2"_q);
    EXPECT_EQ(grid.ActiveRow(), 2);
    EXPECT_EQ(grid.ActiveCol(), 3);
}

TEST_F(SpreadBlock, AnArrowAloneEndsItAlsoAtTheRim)
{
    Open();
    grid.SetActiveCell(3, 1);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Up);
    EXPECT_EQ(Copied(), u"010-1"_q);
}

TEST_F(SpreadBlock, CtrlASelectsAllAndHiddenColumnsRemovedRowsAndButtonsAreNotCopied)
{
    Open();
    grid.Cells().SetMaxRows(3);
    grid.SetRowHidden(2, true);
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Copied(), u"01\t이름1\t010-1\n03\t이름3\t010-3"_q);
}

TEST_F(SpreadBlock, AMarkIsCopiedAsNothing)
{
    Open();
    grid.Cells().SetPictures({QIcon()});
    grid.Cells().SetCellPicture(1, 2, 0);
    Drag(1, 1, 2, 2);
    EXPECT_EQ(Copied(), u"01\t이름1\n\t이름2"_q);
}

TEST_F(SpreadBlock, AButtonAloneLeavesTheClipboardAlone)
{
    Open();
    grid.SetActiveCell(4, 2);
    EXPECT_EQ(Copied(), u"before"_q);
}

TEST_F(SpreadBlock, DeleteEmptiesItsEditCellsOnView)
{
    Open();
    grid.SetRowHidden(3, true);
    Drag(1, 2, 3, 4);
    Press(Qt::Key_Delete);
    for (const int row : {2, 4}) {
        EXPECT_EQ(grid.Cells().Text(1, row), u"0%1"_q.arg(row));
        EXPECT_EQ(grid.Cells().Text(2, row), QString());
        EXPECT_EQ(grid.Cells().Text(3, row), QString());
        EXPECT_EQ(grid.Cells().Text(5, row), u"숨김"_q);
    }
    EXPECT_EQ(grid.Cells().Text(2, 3), u"이름3"_q);
    EXPECT_EQ(grid.Cells().Text(2, 5), u"이름5"_q);
}

TEST_F(SpreadBlock, CutCopiesItAndEmptiesItsEditCells)
{
    Open();
    Drag(2, 2, 3, 2);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"이름2\t010-2"_q);
    EXPECT_EQ(grid.Cells().Text(2, 2) + grid.Cells().Text(3, 2), QString());
}

TEST_F(SpreadBlock, IsTintedBesideTheActiveCell)
{
    Open();
    const auto colorOf = [this](int col, int row) {
        return grid.viewport()->grab().toImage().pixelColor(grid.visualRect(Index(col, row)).topLeft() +
                                                            QPoint(2, 2));
    };
    const QColor atRest = colorOf(3, 3);
    const QColor active = [&] {
        grid.SetActiveCell(2, 2);
        return colorOf(2, 2);
    }();
    Drag(2, 2, 3, 3);
    EXPECT_NE(colorOf(3, 3), atRest);
    EXPECT_EQ(colorOf(2, 2), active);
    grid.SetActiveCell(2, 2);
    EXPECT_EQ(colorOf(3, 3), atRest);
}

TEST_F(SpreadBlock, TheMenuHasWhatAppliesInKorean)
{
    Open();
    grid.SetActiveCell(2, 2);
    QMenu* menu = AskForMenu(QContextMenuEvent::Keyboard);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Entries(*menu), QStringList({u"복사"_q, u"붙여넣기"_q, u"지우기"_q}));
    menu->close();
    grid.SetActiveCell(4, 2);
    QApplication::clipboard()->clear();
    menu = AskForMenu(QContextMenuEvent::Keyboard);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Entries(*menu), QStringList({u"(복사)"_q, u"(붙여넣기)"_q, u"(지우기)"_q}));
    menu->close();
}

TEST_F(SpreadBlock, WhereNothingCanBeEditedTheMenuCopiesOnly)
{
    Open();
    grid.Cells().SetType(2, CellType::StaticText);
    grid.Cells().SetType(3, CellType::StaticText);
    QMenu* menu = AskForMenu(QContextMenuEvent::Keyboard);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Entries(*menu), QStringList{u"복사"_q});
    menu->close();
}

TEST_F(SpreadBlock, TheMenuActsOnTheSelectionAndAPressBesideItMovesIt)
{
    Open();
    Drag(2, 2, 3, 3);
    QMenu* menu = AskForMenu(QContextMenuEvent::Mouse, Place(3, 3));
    ASSERT_NE(menu, nullptr);
    menu->actions()[0]->trigger();
    menu->close();
    EXPECT_EQ(QApplication::clipboard()->text(), u"이름2\t010-2\n이름3\t010-3"_q);
    menu = AskForMenu(QContextMenuEvent::Mouse, Place(2, 5));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(grid.ActiveRow(), 5);
    menu->actions()[2]->trigger();
    menu->close();
    EXPECT_EQ(grid.Cells().Text(2, 5), QString());
    EXPECT_EQ(grid.Cells().Text(2, 3), u"이름3"_q);
}

TEST_F(SpreadBlock, TheMenuPastesAsCtrlVDoes)
{
    Open();
    QString offered;
    grid.OnPaste = [&](const QString& text) {
        offered = text;
        return true;
    };
    QMenu* menu = AskForMenu(QContextMenuEvent::Keyboard);
    ASSERT_NE(menu, nullptr);
    menu->actions()[1]->trigger();
    menu->close();
    EXPECT_EQ(offered, u"before"_q);
}

TEST_F(SpreadBlock, ShiftAndF10OpenTheMenuBelowTheActiveCell)
{
    Open();
    grid.SetActiveCell(2, 2);
    Press(Qt::Key_F10, Qt::ShiftModifier);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->pos(), grid.viewport()->mapToGlobal(grid.visualRect(Index(2, 2)).bottomLeft()));
    menu->close();
}

TEST_F(SpreadBlock, ShiftAndF10EndAnEditBeforeTheMenuOpens)
{
    Open();
    grid.SetActiveCell(3, 2);
    Press(Qt::Key_F2);
    Type("9");
    Press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010-29"_q);
    QApplication::activePopupWidget()->close();
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

TEST_F(SpreadTest, F2AndADoubleClickEditInPlace)
{
    Show();
    grid.Cells().SetText(3, 1, u"010"_q);
    grid.SetActiveCell(3, 1);
    Press(Qt::Key_F2);
    Type("1");
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"0101"_q);
    DoubleClickOn(3, 1);
    ASSERT_TRUE(IsEditing());
    Type("2");
    grid.CommitEdit();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"01012"_q);
}

TEST_F(SpreadTest, DeleteClearsAnEditCell)
{
    Show();
    grid.Cells().SetText(3, 1, u"010"_q);
    grid.SetActiveCell(3, 1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(grid.Cells().Text(3, 1), QString());
    EXPECT_FALSE(IsEditing());
}

TEST_F(SpreadTest, EscapeLeavesTheTextAsItWas)
{
    Show();
    grid.Cells().SetText(3, 1, u"010"_q);
    grid.SetActiveCell(3, 1);
    Type("9");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.Cells().Text(3, 1), u"010"_q);
}

TEST_F(SpreadTest, AClickElsewhereCommitsTheEdit)
{
    Show();
    grid.SetActiveCell(3, 1);
    Type("010");
    ClickOn(2, 5);
    EXPECT_EQ(grid.Cells().Text(3, 1), u"010"_q);
    EXPECT_EQ(grid.ActiveRow(), 5);
}

TEST_F(SpreadTest, LosingTheFocusCommitsTheEdit)
{
    Show();
    grid.SetActiveCell(3, 1);
    Type("010");
    next.setFocus();
    EXPECT_EQ(grid.Cells().Text(3, 1), u"010"_q);
}

TEST_F(SpreadTest, UpAndDownCommitTheEditAndWalkOn)
{
    Show();
    grid.SetActiveCell(3, 2);
    Type("010");
    Press(Qt::Key_Down);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
    EXPECT_EQ(grid.ActiveRow(), 3);
    Type("011");
    Press(Qt::Key_Up);
    EXPECT_EQ(grid.Cells().Text(3, 3), u"011"_q);
    EXPECT_EQ(grid.ActiveRow(), 2);
}

TEST_F(SpreadTest, TabCommitsTheEditAndIsEnterForTheOwner)
{
    Show();
    int seen = 0;
    grid.OnKeyPress = [&](int& key) { seen += key == 13; };
    grid.SetActiveCell(3, 2);
    Type("010");
    Press(Qt::Key_Tab);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(seen, 1);
}

TEST_F(SpreadTest, TabLeavesTheGridWhereNothingIsEdited)
{
    Show();
    grid.SetActiveCell(3, 2);
    Press(Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(grid.hasFocus());
    EXPECT_EQ(grid.ActiveCol(), 3);
}

TEST_F(SpreadTest, ShiftTabCommitsTheEditAndGoesToTheEditCellBefore)
{
    Show();
    grid.SetRowHidden(2, true);
    grid.SetActiveCell(3, 3);
    for (const auto& [col, row] : {std::pair(2, 3), {3, 1}, {2, 1}, {2, 1}}) {
        Type("1");
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(grid.ActiveCol(), col);
        EXPECT_EQ(grid.ActiveRow(), row);
        EXPECT_FALSE(IsEditing());
    }
    EXPECT_EQ(grid.Cells().Text(3, 3), u"1"_q);
    EXPECT_EQ(grid.Cells().Text(2, 2), QString());
}

TEST_F(SpreadTest, TheOwnerIsToldWhenTabComesToTheGrid)
{
    Show();
    int came = 0;
    grid.OnTabInto = [&] { ++came; };
    next.setFocus();
    grid.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(came, 0);
    for (const auto reason : {Qt::TabFocusReason, Qt::BacktabFocusReason}) {
        next.setFocus();
        grid.setFocus(reason);
    }
    EXPECT_EQ(came, 2);
}

TEST_F(SpreadTest, TheOwnerSeesEnterWithTheEditCommitted)
{
    Show();
    QString then;
    grid.OnKeyPress = [&](int& key) {
        if (key != 13)
            return;
        then = grid.Cells().Text(2, 2);
        grid.SetActiveCell(3, 2);
        key = 0;
    };
    grid.SetActiveCell(2, 2);
    Type("abc");
    Press(Qt::Key_Return);
    EXPECT_EQ(then, u"abc"_q);
    EXPECT_EQ(grid.ActiveCol(), 3);
    Type("010");
    Press(Qt::Key_Enter);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
}

TEST_F(SpreadTest, TheOwnerSeesEnterInAnyCell)
{
    Show();
    int seen = 0;
    grid.OnKeyPress = [&](int& key) { seen += key == 13; };
    Press(Qt::Key_Return);
    grid.SetActiveCell(4, 2);
    Press(Qt::Key_Enter);
    EXPECT_EQ(seen, 2);
}

TEST_F(SpreadTest, ASwallowedKeyStartsNoEdit)
{
    Show();
    grid.OnKeyPress = [](int& key) { key = key == 'a' ? 0 : key; };
    grid.SetActiveCell(2, 2);
    Type("a");
    EXPECT_FALSE(IsEditing());
    Type("b");
    EXPECT_TRUE(IsEditing());
}

TEST_F(SpreadTest, EditingAndArrowsNeverChangeARemovedRow)
{
    Show();
    grid.SetActiveCell(3, 2);
    grid.Cells().SetText(3, 2, u"010"_q);
    grid.SetRowHidden(2, true);
    Type("9");
    Press(Qt::Key_F2);
    Press(Qt::Key_Delete);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
}

TEST_F(SpreadTest, HidingTheRowUnderEditKeepsWhatWasTyped)
{
    Show();
    grid.SetActiveCell(3, 2);
    Type("010");
    grid.SetRowHidden(2, true);
    EXPECT_EQ(grid.Cells().Text(3, 2), u"010"_q);
    EXPECT_FALSE(IsEditing());
}

TEST_F(SpreadTest, ResetEndsAnEditWithoutATrace)
{
    Show();
    grid.SetActiveCell(3, 2);
    Type("010");
    grid.Reset();
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(grid.Cells().Text(3, 2), QString());
}

TEST_F(SpreadTest, OpeningAnEditorAloneOverridesNothing)
{
    Show();
    grid.Cells().SetMaxRows(5);
    grid.SetDataSource(std::make_shared<CountingSource>(5, 5));
    grid.SetActiveCell(3, 2);
    Press(Qt::Key_F2);
    grid.CommitEdit();
    grid.Cells().SetMaxRows(0);
    grid.Cells().SetMaxRows(5);
    EXPECT_EQ(grid.Cells().Text(3, 2), QString());
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
