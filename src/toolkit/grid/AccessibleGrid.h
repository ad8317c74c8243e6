#pragma once

#include <QAccessibleWidget>

#include <map>
#include <utility>

class QModelIndex;

namespace tsms {

class fpSpread;

/// What a screen reader is told of a grid: the table that is on view. Hidden rows and columns are not in it
/// and are not counted. Its parts are the titles on view and the cells, row by row.
class AccessibleGrid final : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit AccessibleGrid(fpSpread& grid);
    ~AccessibleGrid() override;

    /// A cell or title by the grid's own numbers, also one that is hidden; null outside the grid.
    QAccessibleInterface* Part(int col, int row) const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* part) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    // Rows and columns are those on view, from 0.
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int rowCount() const override;
    int columnCount() const override;
    QString rowDescription(int row) const override;
    QString columnDescription(int column) const override;
    int selectedCellCount() const override;
    int selectedRowCount() const override;
    int selectedColumnCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    QList<int> selectedRows() const override;
    QList<int> selectedColumns() const override;
    bool isRowSelected(int row) const override;
    bool isColumnSelected(int column) const override;
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {} // a part is a place in the grid

private:
    fpSpread& grid_;
    mutable std::map<std::pair<int, int>, QAccessible::Id> parts_; // by row and column
};

/// Has a screen reader told of every grid as above. Called before the first of them is asked about.
void TellOfGrids();

/// Tells a screen reader what has come to a cell, if it is on view.
void TellOfCell(fpSpread& grid, const QModelIndex& cell, QAccessible::Event what);

} // namespace tsms
