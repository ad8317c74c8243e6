#include "support/Words.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Pictures.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QHeaderView>
#include <QLineEdit>
#include <QTest>

namespace tsms::test {

namespace {

/// A grid of four columns and five rows: a key, which is hidden, a mark, a name and a button.
class AccessibleGridTest : public ::testing::Test
{
protected:
    enum Column { Key = 1, Mark, Name, Remove };

    AccessibleGridTest()
    {
        grid.Cells().SetMaxCols(Remove);
        grid.Cells().SetMaxRows(5);
        grid.Cells().SetText(Mark, 0, u"선택"_q);
        grid.Cells().SetText(Name, 0, u"성명"_q);
        grid.SetHeadersVisible(true, false);
        grid.Cells().SetType(Name, SpreadModel::CellType::Edit);
        grid.Cells().SetMaxLength(Name, 3);
        grid.Cells().SetButton(Remove, u"x"_q, Qt::gray, Qt::white);
        grid.Cells().SetPictures(CheckPictures());
        for (int row = 1; row <= 5; ++row) {
            grid.Cells().SetText(Key, row, u"key%1"_q.arg(row));
            grid.Cells().SetText(Name, row, u"이름%1"_q.arg(row));
        }
        grid.SetColHidden(Key, true);
        grid.resize(600, 400);
        grid.show();
    }

    QAccessibleInterface& Told() { return *QAccessible::queryAccessibleInterface(&grid); }
    QAccessibleTableInterface& Table() { return *Told().tableInterface(); }
    QAccessibleInterface& CellAt(int row, int column) { return *Table().cellAt(row, column); }
    QString NameAt(int row, int column) { return CellAt(row, column).text(QAccessible::Name); }
    QStringList AllNames()
    {
        QStringList names;
        for (int i = 0; i < Told().childCount(); ++i)
            names += Told().child(i)->text(QAccessible::Name);
        return names;
    }

    fpSpread grid;
};

TEST_F(AccessibleGridTest, HasTheRowsAndColumnsOnViewAlone)
{
    EXPECT_EQ(Told().role(), QAccessible::Table);
    EXPECT_EQ(Table().rowCount(), 5);
    EXPECT_EQ(Table().columnCount(), 3);
    grid.SetRowHidden(2, true);
    grid.SetRowHidden(5, true);
    EXPECT_EQ(Table().rowCount(), 3);
    EXPECT_EQ(NameAt(0, 1), u"이름1"_q);
    EXPECT_EQ(NameAt(1, 1), u"이름3"_q);
    EXPECT_EQ(NameAt(2, 1), u"이름4"_q);
    EXPECT_EQ(Table().cellAt(3, 1), nullptr);
    EXPECT_EQ(Table().cellAt(0, 3), nullptr);
    EXPECT_EQ(Table().cellAt(-1, 0), nullptr);
}

TEST_F(AccessibleGridTest, NothingHiddenIsAmongItsParts)
{
    grid.SetRowHidden(3, true);
    const QStringList names = AllNames();
    EXPECT_EQ(names.size(), 3 * (1 + 4)); // with the titles
    EXPECT_FALSE(names.contains(u"key1"_q));
    EXPECT_FALSE(names.contains(u"이름3"_q));
    EXPECT_TRUE(names.contains(u"이름4"_q));
}

TEST_F(AccessibleGridTest, EachPartStandsWhereItIsFound)
{
    grid.SetRowHidden(3, true);
    for (bool rowTitles : {false, true}) {
        grid.SetHeadersVisible(true, rowTitles);
        for (int i = 0; i < Told().childCount(); ++i)
            EXPECT_EQ(Told().indexOfChild(Told().child(i)), i);
    }
    EXPECT_EQ(Told().child(-1), nullptr);
    EXPECT_EQ(Told().child(Told().childCount()), nullptr);
}

TEST_F(AccessibleGridTest, ACellKnowsItsPlaceOnViewAndItsTitles)
{
    grid.SetRowHidden(1, true);
    QAccessibleInterface& cell = CellAt(2, 1);
    QAccessibleTableCellInterface& place = *cell.tableCellInterface();
    EXPECT_EQ(cell.text(QAccessible::Name), u"이름4"_q);
    EXPECT_EQ(place.rowIndex(), 2);
    EXPECT_EQ(place.columnIndex(), 1);
    EXPECT_EQ(place.table(), &Told());
    ASSERT_EQ(place.columnHeaderCells().size(), 1);
    EXPECT_EQ(place.columnHeaderCells()[0]->text(QAccessible::Name), u"성명"_q);
    EXPECT_EQ(place.columnHeaderCells()[0]->role(), QAccessible::ColumnHeader);
    EXPECT_TRUE(place.rowHeaderCells().isEmpty());
    EXPECT_EQ(cell.text(QAccessible::Description), u"성명"_q);
}

TEST_F(AccessibleGridTest, ARowWithATitleIsToldOfByItToo)
{
    grid.SetHeadersVisible(true, true);
    grid.Cells().SetText(0, 2, u"성공"_q);
    EXPECT_EQ(CellAt(1, 1).text(QAccessible::Description), u"성공 성명"_q);
    EXPECT_EQ(Table().rowDescription(1), u"성공"_q);
    ASSERT_EQ(CellAt(1, 1).tableCellInterface()->rowHeaderCells().size(), 1);
    EXPECT_EQ(CellAt(1, 1).tableCellInterface()->rowHeaderCells()[0]->text(QAccessible::Name), u"성공"_q);
}

TEST_F(AccessibleGridTest, AColumnWithoutATitleIsToldOfByWordsOfItsOwn)
{
    EXPECT_TRUE(CellAt(0, 2).tableCellInterface()->columnHeaderCells().isEmpty());
    grid.Cells().SetWords(Remove, u"삭제"_q);
    EXPECT_EQ(Table().columnDescription(2), u"삭제"_q);
    EXPECT_EQ(CellAt(0, 2).text(QAccessible::Description), u"삭제"_q);
    EXPECT_EQ(grid.Cells().Text(Remove, 0), QString());
}

TEST_F(AccessibleGridTest, AMarkSaysWhetherItIsTicked)
{
    grid.Cells().SetCellPicture(Mark, 1, CheckTicked);
    grid.Cells().SetCellPicture(Mark, 2, CheckEmpty);
    grid.Cells().SetCellPicture(Mark, 3, CheckLocked);
    EXPECT_EQ(NameAt(0, 0), u"선택됨"_q);
    EXPECT_TRUE(CellAt(0, 0).state().checked);
    EXPECT_TRUE(CellAt(1, 0).state().checkable);
    EXPECT_FALSE(CellAt(1, 0).state().checked);
    EXPECT_FALSE(CellAt(2, 0).state().checkable);
}

TEST_F(AccessibleGridTest, ANumberIsToldAsItIsShown)
{
    grid.Cells().SetNumber(Name, true);
    grid.Cells().SetText(Name, 1, u"8000"_q);
    EXPECT_EQ(NameAt(0, 1), u"8,000"_q);
    EXPECT_EQ(grid.Cells().Text(Name, 1), u"8000"_q);
}

TEST_F(AccessibleGridTest, ACellWhoseRowIsRemovedFallsSilent)
{
    QAccessibleInterface& cell = CellAt(1, 1);
    EXPECT_FALSE(cell.state().invisible);
    grid.SetRowHidden(2, true);
    EXPECT_TRUE(cell.state().invisible);
    EXPECT_EQ(Told().indexOfChild(&cell), -1);
    grid.Cells().SetMaxRows(1);
    EXPECT_FALSE(cell.isValid());
    EXPECT_TRUE(cell.state().invalid);
}

TEST_F(AccessibleGridTest, TheActiveCellIsTheOneWithTheFocus)
{
    grid.SetActiveCell(Name, 3);
    EXPECT_TRUE(CellAt(2, 1).state().focused);
    EXPECT_FALSE(CellAt(1, 1).state().focused);
    CellAt(1, 1).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(grid.ActiveRow(), 2);
    EXPECT_EQ(grid.ActiveCol(), Name);
}

TEST_F(AccessibleGridTest, ACellThatIsEditedTakesATextUpToItsLimit)
{
    EXPECT_TRUE(CellAt(0, 1).state().editable);
    CellAt(0, 1).setText(QAccessible::Value, u"가나다라"_q);
    EXPECT_EQ(grid.Cells().Text(Name, 1), u"가나다"_q);
    CellAt(0, 2).setText(QAccessible::Value, u"y"_q);
    EXPECT_EQ(grid.Cells().Text(Remove, 1), u"x"_q);
}

TEST_F(AccessibleGridTest, TheEditorIsToldOfByTheTitleOfItsColumn)
{
    grid.setFocus();
    grid.SetActiveCell(Name, 1);
    QTest::keyClick(&grid, Qt::Key_F2);
    const auto* editor = grid.viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->accessibleName(), u"성명"_q);
}

TEST_F(AccessibleGridTest, APartIsFoundWhereItIsDrawn)
{
    grid.SetRowHidden(1, true);
    for (QAccessibleInterface* part : {&CellAt(0, 1), &CellAt(3, 2), Told().child(0)}) {
        const QPoint middle = part->rect().center();
        EXPECT_EQ(Told().childAt(middle.x(), middle.y()), part);
    }
}

TEST_F(AccessibleGridTest, WhatIsSelectedIsToldByItsPlaceOnView)
{
    grid.SetRowHidden(1, true);
    grid.SetActiveCell(Name, 3);
    ASSERT_EQ(Table().selectedCellCount(), 1);
    EXPECT_EQ(Table().selectedCells()[0], &CellAt(1, 1));
    EXPECT_TRUE(CellAt(1, 1).tableCellInterface()->isSelected());
    EXPECT_EQ(Table().selectedRowCount(), 0);
    EXPECT_TRUE(Told().state().multiSelectable);
}

} // namespace

} // namespace tsms::test
