#include "toolkit/grid/SpreadBench.h"

#include <QHeaderView>
#include <QSignalSpy>

namespace tsms::test {

namespace {

using SpreadMouseTest = SpreadBench;

TEST_F(SpreadMouseTest, AClickMakesTheCellActiveAndIsReportedOnce)
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

TEST_F(SpreadMouseTest, AButtonReleasedOnAnotherCellIsNoClick)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, Place(4, 2));
    QTest::mouseMove(grid.viewport(), Place(4, 3));
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, Place(4, 3));
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(grid.ActiveRow(), 2);
}

TEST_F(SpreadMouseTest, OtherButtonsClickNothing)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, Place(4, 2));
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(grid.ActiveRow(), 1);
}

TEST_F(SpreadMouseTest, AClickBesideTheCellsIsNone)
{
    Show();
    grid.Cells().SetMaxRows(2);
    QSignalSpy clicks(&grid, &fpSpread::Click);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(20, 200));
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(SpreadMouseTest, PressesNeverFallThroughToTheWindow)
{
    Show();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, Place(1, 1));
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, Place(1, 1));
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(290, 290));
    EXPECT_EQ(surface.presses, 0);
}

TEST_F(SpreadMouseTest, ADoubleClickIsOneClickAndOneDoubleClick)
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

TEST_F(SpreadMouseTest, OfADoubleAndATripleClickAButtonTakesTheFirst)
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

TEST_F(SpreadMouseTest, AButtonTakesTheNextClickAgain)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    MultiClickOn(4, 4, 2);
    pressTime += QApplication::doubleClickInterval();
    MultiClickOn(4, 4, 1);
    MultiClickOn(4, 8, 1);
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(SpreadMouseTest, ASecondClickOnACellThatAKeyHasLeftIsAFirst)
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

TEST_F(SpreadMouseTest, ADoubleClickOnATitleIsOneOfRowZero)
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

TEST_F(SpreadMouseTest, ADoubleClickBesideTheCellsIsOneOfNoCell)
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

TEST_F(SpreadMouseTest, AClickMayEndTheGrid)
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

TEST_F(SpreadMouseTest, AButtonColumnBearsItsCaptionInEveryRow)
{
    EXPECT_EQ(grid.Cells().Text(4, 20), u"x"_q);
    EXPECT_EQ(Index(4, 1).data().toString(), u"x"_q);
}

TEST_F(SpreadMouseTest, TheSpaceBarPressesAButtonCell)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    grid.SetActiveCell(4, 3);
    Press(Qt::Key_Space);
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 4);
    EXPECT_EQ(clicks[0][1].toInt(), 3);
}

TEST_F(SpreadMouseTest, TheSpaceBarPressesNothingInARemovedRow)
{
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    grid.SetActiveCell(4, 3);
    grid.SetRowHidden(3, true);
    Press(Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(SpreadMouseTest, WithoutSpaceClicksTheSpaceBarDoesNothingInCellsWithoutTextEntry)
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

TEST_F(SpreadMouseTest, ResetTurnsSpaceClicksOnAgain)
{
    grid.SetSpaceClicks(false);
    grid.Reset();
    Show();
    QSignalSpy clicks(&grid, &fpSpread::Click);
    Press(Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
}

} // namespace

} // namespace tsms::test
