#include "toolkit/grid/AccessibleGrid.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Pictures.h"

#include <QHeaderView>
#include <QPointer>

namespace tsms {

namespace {

// Rows and columns have numbers of the grid, from 1, and places among those on view, from 0. An axis is the
// header of either.

int CountOnView(const QHeaderView& axis)
{
    return axis.count() - axis.hiddenSectionCount();
}

/// Of a place that is none: 0, the number of the titles.
int NumberAt(const QHeaderView& axis, int place)
{
    if (place < 0 || place >= CountOnView(axis))
        return 0;
    if (axis.hiddenSectionCount() == 0)
        return place + 1;
    int section = 0;
    while (axis.isSectionHidden(section) || place-- > 0)
        ++section;
    return section + 1;
}

/// -1 for the titles.
int PlaceOf(const QHeaderView& axis, int number)
{
    if (axis.hiddenSectionCount() == 0)
        return number - 1;
    int place = -1;
    for (int section = 0; section < number; ++section)
        if (!axis.isSectionHidden(section))
            ++place;
    return place;
}

bool HasTitles(const QHeaderView& axis)
{
    return !axis.isHidden();
}

QString TitleOf(const fpSpread& grid, Qt::Orientation orientation, int number)
{
    return grid.model()->headerData(number - 1, orientation, Qt::AccessibleTextRole).toString();
}

/// A cell, or in row or column 0 a title. It stays that of its place, whatever the grid shows there.
class AccessiblePart final : public QAccessibleInterface,
                             public QAccessibleTableCellInterface,
                             public QAccessibleActionInterface
{
public:
    AccessiblePart(fpSpread& grid, int col, int row) : grid_(&grid), col_(col), row_(row) {}

    int Col() const { return col_; }
    int Row() const { return row_; }

    bool isValid() const override
    {
        return grid_ && col_ <= grid_->Cells().MaxCols() && row_ <= grid_->Cells().MaxRows();
    }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(grid_); }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    QRect rect() const override;

    QAccessibleInterface* table() const override { return parent(); }
    int columnIndex() const override { return PlaceOf(*grid_->horizontalHeader(), col_); }
    int rowIndex() const override { return PlaceOf(*grid_->verticalHeader(), row_); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    bool isSelected() const override { return grid_->selectionModel()->isSelected(Index()); }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return TitleParts(col_, 0); }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return TitleParts(0, row_); }

    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    bool IsCell() const { return col_ > 0 && row_ > 0; }
    bool IsHidden() const { return grid_->ColHidden(col_) || grid_->RowHidden(row_); }
    bool IsEdited() const { return IsCell() && grid_->Cells().Type(col_) == SpreadModel::CellType::Edit; }
    QModelIndex Index() const { return grid_->model()->index(row_ - 1, col_ - 1); }
    QString Title() const;
    QString Titles() const;
    QString Words() const;
    QList<QAccessibleInterface*> TitleParts(int col, int row) const;
    void AddCellState(QAccessible::State& state) const;

    QPointer<fpSpread> grid_;
    int col_;
    int row_;
};

void* AccessiblePart::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface && IsCell())
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface && IsCell())
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QAccessible::Role AccessiblePart::role() const
{
    if (IsCell())
        return QAccessible::Cell;
    if (col_ > 0)
        return QAccessible::ColumnHeader;
    return row_ > 0 ? QAccessible::RowHeader : QAccessible::Whitespace;
}

QAccessible::State AccessiblePart::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QRect shown = rect();
    state.invisible = IsHidden() || !grid_->isVisible();
    state.offscreen = !shown.intersects(QRect(grid_->mapToGlobal(QPoint()), grid_->size()));
    state.disabled = !grid_->isEnabled();
    if (IsCell() && !state.invisible)
        AddCellState(state);
    return state;
}

void AccessiblePart::AddCellState(QAccessible::State& state) const
{
    const int picture = grid_->Cells().CellPicture(col_, row_);
    state.selectable = true;
    state.selected = isSelected();
    state.focusable = true;
    state.focused = grid_->currentIndex() == Index();
    state.editable = IsEdited();
    state.readOnly = !state.editable;
    state.checkable = picture == CheckEmpty || picture == CheckTicked;
    state.checked = picture == CheckTicked;
}

QString AccessiblePart::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    if (kind == QAccessible::Name)
        return IsCell() ? Words() : Title();
    if (kind == QAccessible::Description && IsCell())
        return Titles();
    if (kind == QAccessible::Value && IsEdited())
        return Words();
    return {};
}

void AccessiblePart::setText(QAccessible::Text kind, const QString& text)
{
    if (isValid() && IsEdited() && (kind == QAccessible::Value || kind == QAccessible::Name))
        grid_->Cells().EnterText(col_, row_, text);
}

QString AccessiblePart::Title() const
{
    return col_ > 0 ? TitleOf(*grid_, Qt::Horizontal, col_) : TitleOf(*grid_, Qt::Vertical, row_);
}

/// Of a cell. Not every way to a screen reader has a word for the titles, each has one for a description.
QString AccessiblePart::Titles() const
{
    const QString row = TitleOf(*grid_, Qt::Vertical, row_);
    const QString column = TitleOf(*grid_, Qt::Horizontal, col_);
    return row.isEmpty() ? column : row + u' ' + column;
}

QString AccessiblePart::Words() const
{
    const QString words = Index().data(Qt::AccessibleTextRole).toString();
    return words.isEmpty() ? Index().data(Qt::DisplayRole).toString() : words;
}

QList<QAccessibleInterface*> AccessiblePart::TitleParts(int col, int row) const
{
    QAccessibleInterface* title = static_cast<AccessibleGrid*>(parent())->Part(col, row);
    if (title->text(QAccessible::Name).isEmpty())
        return {};
    return {title};
}

QRect AccessiblePart::rect() const
{
    if (!isValid() || IsHidden())
        return {};
    if (IsCell())
        return grid_->visualRect(Index()).translated(grid_->viewport()->mapToGlobal(QPoint()));
    const QHeaderView& across = *grid_->horizontalHeader();
    const QHeaderView& down = *grid_->verticalHeader();
    QRect place(QPoint(), QSize(down.width(), across.height()));
    if (col_ > 0) {
        place.moveLeft(across.x() + across.sectionViewportPosition(col_ - 1));
        place.setWidth(across.sectionSize(col_ - 1));
    } else if (row_ > 0) {
        place.moveTop(down.y() + down.sectionViewportPosition(row_ - 1));
        place.setHeight(down.sectionSize(row_ - 1));
    }
    return place.translated(grid_->mapToGlobal(QPoint()));
}

QStringList AccessiblePart::actionNames() const
{
    return isValid() && !IsHidden() ? QStringList{setFocusAction()} : QStringList();
}

void AccessiblePart::doAction(const QString& action)
{
    if (!actionNames().contains(action) || !grid_->isEnabled())
        return;
    grid_->SetActiveCell(col_, row_);
    grid_->setFocus(Qt::OtherFocusReason);
}

QAccessibleInterface* MakeAccessibleGrid(const QString& className, QObject* object)
{
    const bool isGrid = className == QLatin1String(fpSpread::staticMetaObject.className());
    return isGrid ? new AccessibleGrid(static_cast<fpSpread&>(*object)) : nullptr;
}

} // namespace

AccessibleGrid::AccessibleGrid(fpSpread& grid) : QAccessibleWidget(&grid, QAccessible::Table), grid_(grid) {}

AccessibleGrid::~AccessibleGrid()
{
    for (const auto& [place, id] : parts_)
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* AccessibleGrid::Part(int col, int row) const
{
    if (col < 0 || row < 0 || col > grid_.Cells().MaxCols() || row > grid_.Cells().MaxRows())
        return nullptr;
    QAccessible::Id& id = parts_[{row, col}];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(new AccessiblePart(grid_, col, row));
    return QAccessible::accessibleInterface(id);
}

void* AccessibleGrid::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State AccessibleGrid::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = true;
    state.extSelectable = true;
    return state;
}

int AccessibleGrid::childCount() const
{
    return (rowCount() + HasTitles(*grid_.horizontalHeader())) *
           (columnCount() + HasTitles(*grid_.verticalHeader()));
}

QAccessibleInterface* AccessibleGrid::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    const QHeaderView& across = *grid_.horizontalHeader();
    const QHeaderView& down = *grid_.verticalHeader();
    const int width = columnCount() + HasTitles(down);
    return Part(NumberAt(across, index % width - HasTitles(down)),
                NumberAt(down, index / width - HasTitles(across)));
}

int AccessibleGrid::indexOfChild(const QAccessibleInterface* part) const
{
    const auto* own = dynamic_cast<const AccessiblePart*>(part);
    if (!own || own->parent() != this || own->state().invisible)
        return -1;
    const QHeaderView& across = *grid_.horizontalHeader();
    const QHeaderView& down = *grid_.verticalHeader();
    const int row = PlaceOf(down, own->Row()) + HasTitles(across);
    const int col = PlaceOf(across, own->Col()) + HasTitles(down);
    return row < 0 || col < 0 ? -1 : row * (columnCount() + HasTitles(down)) + col;
}

QAccessibleInterface* AccessibleGrid::childAt(int x, int y) const
{
    const QPoint place(x, y);
    const auto in = [&](const QWidget* part) { return part->mapFromGlobal(place); };
    const QHeaderView* across = grid_.horizontalHeader();
    const QHeaderView* down = grid_.verticalHeader();
    if (HasTitles(*across) && across->rect().contains(in(across)))
        return Part(across->logicalIndexAt(in(across)) + 1, 0);
    if (HasTitles(*down) && down->rect().contains(in(down)))
        return Part(0, down->logicalIndexAt(in(down)) + 1);
    const QModelIndex cell = grid_.indexAt(in(grid_.viewport()));
    return cell.isValid() ? Part(cell.column() + 1, cell.row() + 1) : nullptr;
}

QAccessibleInterface* AccessibleGrid::focusChild() const
{
    return grid_.hasFocus() ? Part(grid_.ActiveCol(), grid_.ActiveRow()) : nullptr;
}

QAccessibleInterface* AccessibleGrid::cellAt(int row, int column) const
{
    if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount())
        return nullptr;
    return Part(NumberAt(*grid_.horizontalHeader(), column), NumberAt(*grid_.verticalHeader(), row));
}

int AccessibleGrid::rowCount() const
{
    return CountOnView(*grid_.verticalHeader());
}

int AccessibleGrid::columnCount() const
{
    return CountOnView(*grid_.horizontalHeader());
}

QString AccessibleGrid::rowDescription(int row) const
{
    return TitleOf(grid_, Qt::Vertical, NumberAt(*grid_.verticalHeader(), row));
}

QString AccessibleGrid::columnDescription(int column) const
{
    return TitleOf(grid_, Qt::Horizontal, NumberAt(*grid_.horizontalHeader(), column));
}

int AccessibleGrid::selectedCellCount() const
{
    return static_cast<int>(selectedCells().size());
}

int AccessibleGrid::selectedRowCount() const
{
    return static_cast<int>(selectedRows().size());
}

int AccessibleGrid::selectedColumnCount() const
{
    return static_cast<int>(selectedColumns().size());
}

QList<QAccessibleInterface*> AccessibleGrid::selectedCells() const
{
    QList<QAccessibleInterface*> cells;
    for (const QModelIndex& cell : grid_.selectionModel()->selectedIndexes())
        if (!grid_.isRowHidden(cell.row()) && !grid_.isColumnHidden(cell.column()))
            cells += Part(cell.column() + 1, cell.row() + 1);
    return cells;
}

QList<int> AccessibleGrid::selectedRows() const
{
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row)
        if (isRowSelected(row))
            rows += row;
    return rows;
}

QList<int> AccessibleGrid::selectedColumns() const
{
    QList<int> columns;
    for (int column = 0; column < columnCount(); ++column)
        if (isColumnSelected(column))
            columns += column;
    return columns;
}

bool AccessibleGrid::isRowSelected(int row) const
{
    const int number = NumberAt(*grid_.verticalHeader(), row);
    return number > 0 && grid_.selectionModel()->isRowSelected(number - 1);
}

bool AccessibleGrid::isColumnSelected(int column) const
{
    const int number = NumberAt(*grid_.horizontalHeader(), column);
    return number > 0 && grid_.selectionModel()->isColumnSelected(number - 1);
}

void TellOfGrids()
{
    static const bool told = (QAccessible::installFactory(MakeAccessibleGrid), true);
    Q_UNUSED(told)
}

void TellOfCell(fpSpread& grid, const QModelIndex& cell, QAccessible::Event what)
{
    if (!QAccessible::isActive() || !cell.isValid() || grid.isRowHidden(cell.row()) ||
        grid.isColumnHidden(cell.column()))
        return;
    const auto* told = dynamic_cast<AccessibleGrid*>(QAccessible::queryAccessibleInterface(&grid));
    if (!told)
        return; // it is coming or going
    QAccessibleEvent event(told->Part(cell.column() + 1, cell.row() + 1), what);
    QAccessible::updateAccessibility(&event);
}

} // namespace tsms
