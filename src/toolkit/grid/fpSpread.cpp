#include "toolkit/grid/fpSpread.h"

#include "toolkit/fields/Composition.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/grid/AccessibleGrid.h"
#include "toolkit/grid/SpreadCommands.h"
#include "toolkit/grid/SpreadDelegate.h"
#include "toolkit/grid/SpreadSelection.h"
#include "toolkit/grid/SpreadTitles.h"
#include "toolkit/look/Theme.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScrollBar>

#include <algorithm>

namespace tsms {

namespace {

constexpr double DefaultRowHeight = 14.0;

int PixelsOfPoints(double points)
{
    return qRound(points * 4.0 / 3.0);
}

} // namespace

fpSpread::fpSpread(QWidget* parent)
    : QTableView(parent), model_(new SpreadModel(this)), gridColor_(theme::Line)
{
    editing_ = new SpreadDelegate(*this);
    TellOfGrids();
    setHorizontalHeader(MakeTitles(Qt::Horizontal, *this));
    setVerticalHeader(MakeTitles(Qt::Vertical, *this));
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setModel(model_);
    setItemDelegate(editing_);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed |
                    QAbstractItemView::DoubleClicked);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    DrawCornerLikeTitles(*this);
    setShowGrid(false); // the delegate draws the lines: in the grid's own colour
    setWordWrap(false);
    setMouseTracking(true);
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    SetBackgroundColor(theme::White);
    ShowFocus();
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { widths_.WidenLast(); });
    for (const auto place : {&QHeaderView::sectionDoubleClicked, &QHeaderView::sectionHandleDoubleClicked}) {
        connect(horizontalHeader(), place, this, [this](int section) { Q_EMIT DblClick(section + 1, 0); });
        connect(verticalHeader(), place, this, [this](int section) { Q_EMIT DblClick(0, section + 1); });
    }
    for (const QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] { mouse_.Scrolled(); });
    connect(model_, &QAbstractItemModel::rowsInserted, this, &fpSpread::KeepActiveCell);
    connect(model_, &QAbstractItemModel::columnsInserted, this, &fpSpread::KeepActiveCell);
    connect(model_, &QAbstractItemModel::modelReset, this, &fpSpread::KeepActiveCell);
    for (const auto change : {&QAbstractItemModel::columnsInserted, &QAbstractItemModel::columnsRemoved})
        connect(model_, change, this, [this] { widths_.KeepFirst(model_->MaxCols()); });
    Reset();
}

fpSpread::~fpSpread() = default;

void fpSpread::Reset()
{
    editing_->Cancel();
    // Emptied first: hidden rows and sizes go with the rows and columns that had them.
    model_->SetMaxRows(0);
    model_->SetMaxCols(0);
    widths_.Clear();
    model_->Reset();
    gridColor_ = theme::Line;
    rowCursor_ = false;
    spaceClicks_ = true;
    SetBackgroundColor(theme::White);
    SetHeadersVisible(true, true);
    SetRowHeight(0, DefaultRowHeight);
    SetRowHeight(SpreadModel::All, DefaultRowHeight);
    widths_.Apply();
    setCurrentIndex(model_->index(0, 0));
}

void fpSpread::SetReDraw(bool on)
{
    reDraw_ = on;
    model_->SetAnnouncing(on);
    setUpdatesEnabled(on);
}

void fpSpread::InOneGo(const std::function<void()>& changes)
{
    const auto drawAgain = qScopeGuard([this, before = reDraw_] { SetReDraw(before); });
    SetReDraw(false);
    changes();
}

void fpSpread::SetDataSource(std::shared_ptr<const CellSource> source)
{
    editing_->Cancel();
    model_->SetDataSource(std::move(source));
}

int fpSpread::ActiveRow() const
{
    return currentIndex().isValid() ? currentIndex().row() + 1 : 1;
}

int fpSpread::ActiveCol() const
{
    return currentIndex().isValid() ? currentIndex().column() + 1 : 1;
}

void fpSpread::SetActiveCell(int col, int row)
{
    while (HasCell(col, row) && RowHidden(row))
        ++row;
    if (!HasCell(col, row) || ColHidden(col))
        return;
    CommitEdit();
    setCurrentIndex(model_->index(row - 1, col - 1));
}

void fpSpread::SetColWidth(int col, double width)
{
    widths_.Set(col, width);
}

double fpSpread::ColWidth(int col) const
{
    return widths_.Width(col);
}

double fpSpread::ColWidthInDigits(int col) const
{
    return widths_.WidthInDigits(col);
}

void fpSpread::SetRowHeight(int row, double points)
{
    const int pixels = std::max(PixelsOfPoints(points), 4);
    if (row == 0) {
        horizontalHeader()->setFixedHeight(pixels);
    } else if (row == SpreadModel::All) {
        verticalHeader()->setDefaultSectionSize(pixels);
    } else if (HasCell(1, row)) {
        setRowHeight(row - 1, pixels);
    }
}

bool fpSpread::RowHidden(int row) const
{
    return HasCell(1, row) && isRowHidden(row - 1);
}

void fpSpread::SetRowHidden(int row, bool hidden)
{
    if (!HasCell(1, row))
        return;
    if (hidden && row == ActiveRow())
        CommitEdit();
    setRowHidden(row - 1, hidden);
}

bool fpSpread::ColHidden(int col) const
{
    return col >= 1 && col <= model_->MaxCols() && isColumnHidden(col - 1);
}

void fpSpread::SetColHidden(int col, bool hidden)
{
    if (col < 1 || col > model_->MaxCols())
        return;
    widths_.SetHidden(col, hidden);
    KeepActiveCell();
}

void fpSpread::SetHeadersVisible(bool columns, bool rows)
{
    horizontalHeader()->setVisible(columns);
    verticalHeader()->setVisible(rows);
}

void fpSpread::SetGridColor(const QColor& color)
{
    gridColor_ = color;
    viewport()->update();
}

void fpSpread::SetBackgroundColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, color);
    setPalette(colors);
}

void fpSpread::SetFillWidth(bool on)
{
    widths_.SetFill(on);
}

void fpSpread::SetSpaceClicks(bool on)
{
    spaceClicks_ = on;
}

void fpSpread::SetRowCursor(bool on)
{
    rowCursor_ = on;
    viewport()->update();
}

void fpSpread::CommitEdit()
{
    editing_->Commit();
}

bool fpSpread::IsEditing() const
{
    return editing_->Editor() != nullptr;
}

bool fpSpread::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (!IsOnView(index))
        return false;
    const bool open = QTableView::edit(index, trigger, event);
    auto* line = open ? qobject_cast<QLineEdit*>(indexWidget(index)) : nullptr;
    if (line && (trigger == EditKeyPressed || trigger == DoubleClicked))
        line->end(false); // in place: what stands there is not replaced by the next key
    return open;
}

void fpSpread::mousePressEvent(QMouseEvent* event)
{
    mouse_.Press(*event);
}

void fpSpread::mouseMoveEvent(QMouseEvent* event)
{
    mouse_.Move(*event);
}

void fpSpread::mouseReleaseEvent(QMouseEvent* event)
{
    mouse_.Release(*event);
}

void fpSpread::mouseDoubleClickEvent(QMouseEvent* event)
{
    mouse_.DoubleClick(*event);
}

void fpSpread::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    CommitEdit();
    if (event->reason() != QContextMenuEvent::Mouse) {
        OpenMenuAtCell(*this);
        return;
    }
    const QModelIndex under = indexAt(event->pos());
    if (under.isValid() && !selectionModel()->isSelected(under))
        setCurrentIndex(under);
    OpenMenu(*this, event->globalPos());
}

bool fpSpread::event(QEvent* event)
{
    return (editing_ && editing_->HandOn(*event)) || QTableView::event(event);
}

void fpSpread::keyPressEvent(QKeyEvent* event)
{
    constexpr Qt::KeyboardModifiers Command = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool character = !event->text().isEmpty() && !(event->modifiers() & Command);
    event->accept();
    if (enter) {
        OwnerTakes('\r'); // and where the owner leaves it, it does nothing
        return;
    }
    if (character && OwnerTakes(event->text().front().unicode()))
        return;
    if (event->key() == Qt::Key_Escape) {
        event->ignore();
        return;
    }
    if (DoCommand(*this, *event))
        return;
    if (event->key() == Qt::Key_Space && !IsEditable(currentIndex())) {
        if (spaceClicks_ && IsOnView(currentIndex()))
            ClickCell(currentIndex());
        return;
    }
    // The key for menus arrives as a key alone where the plugin of ibus has had it.
    if (event->key() == Qt::Key_Menu ||
        (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)) {
        CommitEdit();
        OpenMenuAtCell(*this);
        return;
    }
    const QModelIndex corner = CornerBehind(*this, *event);
    if (corner.isValid() && event->modifiers().testFlag(Qt::ShiftModifier)) {
        SelectTo(*this, corner);
        scrollTo(corner);
        return;
    }
    if (corner.isValid())
        SelectTo(*this, currentIndex()); // also where there is nowhere to walk to
    QTableView::keyPressEvent(event);
}

/// Whatever makes a cell the active one selects it alone.
QItemSelectionModel::SelectionFlags fpSpread::selectionCommand(const QModelIndex&, const QEvent*) const
{
    return QItemSelectionModel::ClearAndSelect;
}

void fpSpread::inputMethodEvent(QInputMethodEvent* event)
{
    editing_->Compose(*event);
}

QVariant fpSpread::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return editing_->Editor() ? editing_->Answer(query) : QTableView::inputMethodQuery(query);
}

void fpSpread::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    // Not by way of the base, which would tell of a cell by its place among hidden ones too.
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call)
    UpdateRow(previous);
    UpdateRow(current);
    if (hasFocus())
        TellOfCell(*this, current, QAccessible::Focus);
}

void fpSpread::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    // As above. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QAbstractItemView::selectionChanged(selected, deselected);
    TellOfSelection(selected, QAccessible::SelectionAdd);
    TellOfSelection(deselected, QAccessible::SelectionRemove);
}

/// Of a single cell, or of many in one word.
void fpSpread::TellOfSelection(const QItemSelection& cells, QAccessible::Event what)
{
    if (cells.isEmpty())
        return;
    const QItemSelectionRange& first = cells.first();
    if (cells.size() == 1 && first.topLeft() == first.bottomRight()) {
        TellOfCell(*this, first.topLeft(), what);
    } else {
        QAccessibleEvent event(this, QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
    }
}

void fpSpread::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    widths_.Apply();
}

void fpSpread::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    ShowFocus();
    const bool byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byTab && OnTabInto)
        RaiseEvent(*this, OnTabInto);
    TellOfCell(*this, currentIndex(), QAccessible::Focus);
}

void fpSpread::focusOutEvent(QFocusEvent* event)
{
    QTableView::focusOutEvent(event);
    ShowFocus();
    if (event->reason() == Qt::PopupFocusReason)
        return;                  // a menu, such as the editor's own, ends no edit
    if (editing_->IsComposing()) // what is being composed may arrive only after this
        QMetaObject::invokeMethod(this, &fpSpread::CommitEdit, Qt::QueuedConnection);
    else
        CommitEdit();
}

void fpSpread::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        widths_.Apply();
}

bool fpSpread::HasCell(int col, int row) const
{
    return col >= 1 && col <= model_->MaxCols() && row >= 1 && row <= model_->MaxRows();
}

bool fpSpread::IsOnView(const QModelIndex& index) const
{
    return index.isValid() && !isRowHidden(index.row()) && !isColumnHidden(index.column());
}

bool fpSpread::IsEditable(const QModelIndex& index) const
{
    return IsOnView(index) && model_->flags(index).testFlag(Qt::ItemIsEditable);
}

bool fpSpread::OwnerTakes(int key)
{
    if (!OnKeyPress)
        return false;
    RaiseEvent(*this, [&] { OnKeyPress(key); });
    return key == 0;
}

/// The handlers may do anything, the end of this grid included: nothing may follow the signal.
void fpSpread::ClickCell(const QModelIndex& index)
{
    const int col = index.column() + 1;
    const int row = index.row() + 1;
    Q_EMIT Click(col, row);
}

/// There is an active cell on view whenever there are cells.
void fpSpread::KeepActiveCell()
{
    if (model_->MaxRows() == 0 || model_->MaxCols() == 0)
        return;
    const QModelIndex now = currentIndex();
    int col = now.isValid() ? now.column() : 0;
    if (now.isValid() && !isColumnHidden(col))
        return;
    col = 0;
    while (col < model_->MaxCols() - 1 && isColumnHidden(col))
        ++col;
    selectionModel()->setCurrentIndex(model_->index(now.isValid() ? now.row() : 0, col),
                                      QItemSelectionModel::ClearAndSelect);
}

void fpSpread::ShowFocus()
{
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText,
                    hasFocus() ? theme::Accent : theme::Line); // the colour of the frame
    setPalette(colors);
    viewport()->update();
}

void fpSpread::UpdateRow(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    const QRect cell = visualRect(index);
    viewport()->update(rowCursor_ ? QRect(0, cell.top(), viewport()->width(), cell.height()) : cell);
}

} // namespace tsms
