#include "toolkit/grid/SpreadBench.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>

namespace tsms::test {

namespace {

/// Rows 1 to 5 with a number, a name, a phone number and a hidden value each.
class SpreadBlock : public SpreadBench
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

TEST_F(SpreadBlock, ShiftAndF10AndTheKeyForMenusOpenTheMenuBelowTheActiveCell)
{
    Open();
    grid.SetActiveCell(2, 2);
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_F10, Qt::ShiftModifier), {Qt::Key_Menu, Qt::NoModifier}}) {
        Press(key, modifiers);
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->pos(), grid.viewport()->mapToGlobal(grid.visualRect(Index(2, 2)).bottomLeft()));
        menu->close();
    }
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

} // namespace

} // namespace tsms::test
