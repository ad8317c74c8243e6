#include "toolkit/grid/fpSpread.h"

#include "toolkit/fields/Composition.h"
#include "toolkit/fields/Guarded.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/grid/AccessibleGrid.h"
#include "toolkit/grid/PastedRows.h"
#include "toolkit/grid/SpreadDelegate.h"
#include "toolkit/grid/SpreadModel.h"
#include "toolkit/grid/SpreadSelection.h"
#include "toolkit/look/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace tsms {

namespace {

constexpr double DefaultColWidth = 8.0;
constexpr double DefaultRowHeight = 14.0;
constexpr QColor TitleBack{233, 240, 243};
constexpr QColor TitleLine{205, 216, 220};

int DigitWidth(const QWidget& grid)
{
    return grid.fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

int PixelsOfPoints(double points)
{
    return qRound(points * 4.0 / 3.0);
}

bool IsKey(const QEvent& event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease ||
           event.type() == QEvent::ShortcutOverride;
}

/// The titles of columns or rows, flat and without any part in the selection.
class SpreadHeader final : public QHeaderView
{
public:
    SpreadHeader(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent)
    {
        setMinimumSectionSize(4);
        setSectionsClickable(false);
        setHighlightSections(false);
        setDefaultAlignment(Qt::AlignCenter);
        setFocusPolicy(Qt::NoFocus);
    }

    // The grid sets both sizes. The base would measure a hundred titles at each change of the grid.
    QSize sizeHint() const override { return minimumSize(); }

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override
    {
        const QVariant back = model()->headerData(section, orientation(), Qt::BackgroundRole);
        const QVariant text = model()->headerData(section, orientation(), Qt::ForegroundRole);
        const QString title = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
        painter->fillRect(rect, back.isValid() ? back.value<QColor>() : TitleBack);
        painter->fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), TitleLine);
        painter->fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), TitleLine);
        painter->setPen(text.isValid() ? text.value<QColor>() : theme::StripText);
        const QRect room = rect.adjusted(1, 0, -2, -1);
        painter->drawText(room, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip,
                          painter->fontMetrics().elidedText(title, Qt::ElideRight, room.width()));
    }

    void paintEvent(QPaintEvent* event) override
    {
        QHeaderView::paintEvent(event);
        QRect beyond = viewport()->rect();
        const int end = length() - offset();
        if (orientation() == Qt::Horizontal) {
            beyond.setLeft(std::max(end, 0));
        } else {
            beyond.setTop(std::max(end, 0));
        }
        if (!beyond.isEmpty())
            QPainter(viewport()).fillRect(beyond, TitleBack);
    }
};

/// Draws the corner between the titles like them.
class CornerPainter final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        auto* corner = static_cast<QWidget*>(watched);
        QPainter painter(corner);
        painter.fillRect(corner->rect(), TitleLine);
        painter.fillRect(corner->rect().adjusted(0, 0, -1, -1), TitleBack);
        return true;
    }
};

} // namespace

fpSpread::fpSpread(QWidget* parent)
    : QTableView(parent), model_(new SpreadModel(this)), gridColor_(theme::Line)
{
    TellOfGrids();
    setHorizontalHeader(new SpreadHeader(Qt::Horizontal, this));
    setVerticalHeader(new SpreadHeader(Qt::Vertical, this));
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setModel(model_);
    setItemDelegate(new SpreadDelegate(*this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed |
                    QAbstractItemView::DoubleClicked);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    if (auto* corner = findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly))
        corner->installEventFilter(new CornerPainter(this));
    setShowGrid(false); // the delegate draws the lines: in the grid's own colour
    setWordWrap(false);
    setMouseTracking(true);
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    SetBackgroundColor(theme::White);
    ShowFocus();
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &fpSpread::WidenLastColumn);
    for (const auto place : {&QHeaderView::sectionDoubleClicked, &QHeaderView::sectionHandleDoubleClicked}) {
        connect(horizontalHeader(), place, this, [this](int section) { Q_EMIT DblClick(section + 1, 0); });
        connect(verticalHeader(), place, this, [this](int section) { Q_EMIT DblClick(0, section + 1); });
    }
    for (const QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] {
            if (down_ && drags_)
                SelectTowards(viewport()->mapFromGlobal(QCursor::pos()));
        });
    connect(model_, &QAbstractItemModel::rowsInserted, this, &fpSpread::KeepActiveCell);
    connect(model_, &QAbstractItemModel::columnsInserted, this, &fpSpread::KeepActiveCell);
    connect(model_, &QAbstractItemModel::modelReset, this, &fpSpread::KeepActiveCell);
    Reset();
}

fpSpread::~fpSpread() = default;

int fpSpread::MaxRows() const
{
    return model_->MaxRows();
}

void fpSpread::SetMaxRows(int count)
{
    model_->SetMaxRows(count);
}

int fpSpread::MaxCols() const
{
    return model_->MaxCols();
}

void fpSpread::SetMaxCols(int count)
{
    model_->SetMaxCols(count);
    colWidths_.erase(colWidths_.upper_bound(model_->MaxCols()), colWidths_.end());
    ApplyWidths();
}

void fpSpread::Reset()
{
    CancelEdit();
    // Emptied first: hidden rows and sizes go with the rows and columns that had them.
    model_->SetMaxRows(0);
    model_->SetMaxCols(0);
    colWidths_.clear();
    model_->Reset();
    gridColor_ = theme::Line;
    rowCursor_ = false;
    spaceClicks_ = true;
    SetBackgroundColor(theme::White);
    SetHeadersVisible(true, true);
    SetRowHeight(0, DefaultRowHeight);
    SetRowHeight(All, DefaultRowHeight);
    ApplyWidths();
    setCurrentIndex(model_->index(0, 0));
}

void fpSpread::SetReDraw(bool on)
{
    reDraw_ = on;
    model_->SetAnnouncing(on);
    setUpdatesEnabled(on);
}

QString fpSpread::GetText(int col, int row) const
{
    return model_->Text(col, row);
}

void fpSpread::SetText(int col, int row, const QString& text)
{
    model_->SetText(col, row, text);
}

void fpSpread::EnterText(int col, int row, const QString& text)
{
    const int limit = model_->MaxLength(col);
    SetText(col, row, limit > 0 ? LimitText(text, CharactersMeasure, limit) : text);
}

void fpSpread::SetDataSource(std::shared_ptr<const CellSource> source)
{
    CancelEdit();
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
    if (col < 0 || col > MaxCols())
        return;
    colWidths_[col] = std::max(width, 0.0);
    ApplyWidths();
}

double fpSpread::ColWidth(int col) const
{
    const auto width = colWidths_.find(col);
    return width == colWidths_.end() ? DefaultColWidth : width->second;
}

double fpSpread::ColWidthInDigits(int col) const
{
    return ColWidth(col) * UnitWidth() / DigitWidth(*this);
}

void fpSpread::SetRowHeight(int row, double points)
{
    const int pixels = std::max(PixelsOfPoints(points), 4);
    if (row == 0) {
        horizontalHeader()->setFixedHeight(pixels);
    } else if (row == All) {
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
    return col >= 1 && col <= MaxCols() && isColumnHidden(col - 1);
}

void fpSpread::SetColHidden(int col, bool hidden)
{
    if (col < 1 || col > MaxCols())
        return;
    layingOut_ = true; // it has no width before it is known to be hidden
    setColumnHidden(col - 1, hidden);
    ApplyWidths();
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
    fillWidth_ = on;
    ApplyWidths();
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

void fpSpread::SetColType(int col, CellType type)
{
    model_->SetType(col, type);
}

fpSpread::CellType fpSpread::ColType(int col) const
{
    return model_->Type(col);
}

void fpSpread::SetColMaxLength(int col, int characters)
{
    model_->SetMaxLength(col, characters);
}

void fpSpread::SetColAlignment(int col, Qt::Alignment alignment)
{
    model_->SetAlignment(col, alignment);
}

Qt::Alignment fpSpread::ColAlignment(int col) const
{
    return model_->Alignment(col);
}

void fpSpread::SetColWords(int col, const QString& words)
{
    model_->SetWords(col, words);
}

void fpSpread::SetColButton(int col, const QString& caption, const QColor& face, const QColor& text)
{
    model_->SetButton(col, caption, face, text);
}

void fpSpread::SetColNumber(int col, bool number)
{
    model_->SetNumber(col, number);
}

bool fpSpread::ColNumber(int col) const
{
    return model_->IsNumber(col);
}

void fpSpread::SetRangeColors(int col, int row, const QColor& back, const QColor& text)
{
    model_->SetColors(col, row, back, text);
}

void fpSpread::SetPictures(const QList<QIcon>& pictures)
{
    model_->SetPictures(pictures);
}

void fpSpread::SetCellPicture(int col, int row, int pictureIndex)
{
    model_->SetCellPicture(col, row, pictureIndex);
}

int fpSpread::CellPicture(int col, int row) const
{
    return model_->CellPicture(col, row);
}

void fpSpread::CommitEdit()
{
    if (!Editor())
        return;
    EndComposition();
    if (QWidget* editor = Editor()) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void fpSpread::CancelEdit()
{
    if (QWidget* editor = Editor())
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

QWidget* fpSpread::Editor() const
{
    return state() == EditingState ? indexWidget(currentIndex()) : nullptr;
}

/// An input method takes a change of the focus for the end of its composition. An editor that it opened works
/// without the focus, therefore, to its end: the grid hands on what comes.
bool fpSpread::EditsWithoutFocus() const
{
    const QWidget* editor = Editor();
    return editor && editor->focusProxy() == this;
}

void fpSpread::OpenKeepingFocus()
{
    keepsFocus_ = true;
    edit(currentIndex(), AnyKeyPressed, nullptr);
    keepsFocus_ = false;
    if (auto* line = qobject_cast<QLineEdit*>(Editor()))
        line->selectAll(); // to be replaced
}

bool fpSpread::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (!IsOnView(index))
        return false;
    const bool open = QTableView::edit(index, trigger, event);
    if (open && (trigger == EditKeyPressed || trigger == DoubleClicked)) {
        if (auto* line = qobject_cast<QLineEdit*>(indexWidget(index)))
            line->end(false); // in place: what stands there is not replaced by the next key
    }
    return open;
}

// A press inside the grid is always used up: what it stands on is not pressed with it.
void fpSpread::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    const bool follows = FollowsAPress(*event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (follows && IsButton(index))
        return; // of a double or triple click: what stands here by now may be another row's
    CommitEdit();
    const bool extends = event->modifiers().testFlag(Qt::ShiftModifier) && index.isValid();
    pressed_ = extends ? QModelIndex() : index; // what only extends the selection is no click
    down_ = true;
    drags_ = extends;
    if (extends) {
        SelectTo(*this, index);
    } else if (pressed_.isValid()) {
        setCurrentIndex(pressed_);
        update(pressed_);
    }
}

void fpSpread::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (!down_ || !event->buttons().testFlag(Qt::LeftButton))
        return;
    const QPoint place = event->position().toPoint();
    const bool moved = (place - pressPlace_).manhattanLength() >= QApplication::startDragDistance();
    drags_ = drags_ || (moved && pressed_.isValid() && !IsButton(pressed_));
    if (!drags_)
        return;
    SelectTowards(place);
    if (!viewport()->rect().contains(place))
        startAutoScroll(); // ends by itself
}

void fpSpread::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton || !down_)
        return;
    down_ = false;
    stopAutoScroll();
    const QModelIndex released = indexAt(event->position().toPoint());
    if (pressed_.isValid())
        update(pressed_);
    if (released.isValid() && released == pressed_)
        ClickCell(released);
}

void fpSpread::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool left = index.isValid() && index != currentIndex(); // by a key since the first click
    if (event->button() != Qt::LeftButton || index != pressed_ || left || IsButton(index)) {
        mousePressEvent(event);
        return;
    }
    event->accept();
    const int col = index.isValid() ? index.column() + 1 : -1;
    const int row = index.isValid() ? index.row() + 1 : -1;
    if (IsEditable(index))
        edit(index, DoubleClicked, event);
    Q_EMIT DblClick(col, row);
}

void fpSpread::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    CommitEdit();
    if (event->reason() != QContextMenuEvent::Mouse) {
        OpenMenuAtCell();
        return;
    }
    const QModelIndex under = indexAt(event->pos());
    if (under.isValid() && !selectionModel()->isSelected(under))
        setCurrentIndex(under);
    OpenMenu(event->globalPos());
}

bool fpSpread::event(QEvent* event)
{
    if (!IsKey(*event) || handsOn_ || !EditsWithoutFocus())
        return QTableView::event(event);
    handsOn_ = true;
    QCoreApplication::sendEvent(Editor(), event);
    handsOn_ = false;
    return true;
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
    if (EditingCommand(event))
        return;
    if (event->key() == Qt::Key_Space && !IsEditable(currentIndex())) {
        if (spaceClicks_ && IsOnView(currentIndex()))
            ClickCell(currentIndex());
        return;
    }
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        CommitEdit();
        OpenMenuAtCell();
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
    const bool writes = !event->preeditString().isEmpty() || !event->commitString().isEmpty();
    if (!Editor() && writes && IsEditable(currentIndex()))
        OpenKeepingFocus();
    if (QWidget* editor = Editor()) {
        QCoreApplication::sendEvent(editor, event);
        updateMicroFocus(); // the caret has moved
    }
}

QVariant fpSpread::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (!EditsWithoutFocus())
        return QTableView::inputMethodQuery(query);
    QVariant answer = Editor()->inputMethodQuery(query);
    if (answer.typeId() == QMetaType::QRect)
        return answer.toRect().translated(Editor()->mapTo(this, QPoint()));
    return answer;
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
    ApplyWidths();
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
    // What is being composed may arrive only after this.
    if (EditsWithoutFocus())
        QMetaObject::invokeMethod(this, &fpSpread::CommitEdit, Qt::QueuedConnection);
}

void fpSpread::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        ApplyWidths();
}

bool fpSpread::HasCell(int col, int row) const
{
    return col >= 1 && col <= MaxCols() && row >= 1 && row <= MaxRows();
}

bool fpSpread::IsOnView(const QModelIndex& index) const
{
    return index.isValid() && !isRowHidden(index.row()) && !isColumnHidden(index.column());
}

bool fpSpread::IsEditable(const QModelIndex& index) const
{
    return IsOnView(index) && model_->flags(index).testFlag(Qt::ItemIsEditable);
}

bool fpSpread::IsButton(const QModelIndex& index) const
{
    return index.isValid() && model_->Type(index.column() + 1) == CellType::Button;
}

bool fpSpread::IsButtonDown(const QModelIndex& index) const
{
    return down_ && index == pressed_;
}

/// As the second press of a double click follows its first.
bool fpSpread::FollowsAPress(const QMouseEvent& press)
{
    const auto now = static_cast<qint64>(press.timestamp());
    const QPoint place = press.position().toPoint();
    const bool soon = now - pressTime_ < QApplication::doubleClickInterval();
    const bool near = (place - pressPlace_).manhattanLength() < QApplication::startDragDistance();
    pressTime_ = now;
    pressPlace_ = place;
    return press.type() == QEvent::MouseButtonDblClick || (soon && near);
}

/// The keyboard acts on this grid, on its cells or in the editor of one.
bool fpSpread::HasAttention() const
{
    return hasFocus() || state() == EditingState;
}

bool fpSpread::OwnerTakes(int key)
{
    if (!OnKeyPress)
        return false;
    RaiseEvent(*this, [&] { OnKeyPress(key); });
    return key == 0;
}

/// To the edit cell before the active one, in its row or one above.
void fpSpread::WalkBack()
{
    int col = ActiveCol();
    int row = ActiveRow();
    do {
        if (--col < 1) {
            col = MaxCols();
            --row;
        }
    } while (row >= 1 && !IsEditable(model_->index(row - 1, col - 1)));
    SetActiveCell(col, row);
}

bool fpSpread::EditingCommand(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        Copy();
    else if (event->matches(QKeySequence::Cut))
        Cut();
    else if (event->matches(QKeySequence::Paste))
        Paste();
    else if (event->matches(QKeySequence::Delete))
        ClearSelected();
    else
        return false;
    return true;
}

void fpSpread::Copy()
{
    const QList<QStringList> texts = SelectedTexts(*this);
    if (!texts.isEmpty())
        QApplication::clipboard()->setText(CopiedText(texts));
}

void fpSpread::Cut()
{
    if (SelectedEditCells(*this).isEmpty())
        return;
    Copy();
    ClearSelected();
}

void fpSpread::Paste()
{
    const QString text = QApplication::clipboard()->text();
    if (OwnerTakesPaste(text) || !IsEditable(currentIndex()))
        return;
    // A cell takes what stands before a line break.
    EnterText(ActiveCol(), ActiveRow(), text.first(FirstLineLength(text)));
}

void fpSpread::ClearSelected()
{
    for (const QModelIndex& cell : SelectedEditCells(*this))
        SetText(cell.column() + 1, cell.row() + 1, QString());
}

void fpSpread::SelectTowards(QPoint place)
{
    SelectTo(*this, CellTowards(*this, place));
}

void fpSpread::OpenMenu(QPoint place)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& words, QKeySequence::StandardKey key, bool enabled, auto act) {
        QAction* entry = menu->addAction(words, this, act);
        entry->setShortcut(key);
        entry->setShortcutContext(Qt::WidgetShortcut); // only to be seen: the grid has the keys
        entry->setShortcutVisibleInContextMenu(true);
        entry->setEnabled(enabled);
    };
    add(QStringLiteral("복사"), QKeySequence::Copy, !SelectedTexts(*this).isEmpty(), &fpSpread::Copy);
    if (HasEditColumn()) {
        add(QStringLiteral("붙여넣기"), QKeySequence::Paste, !QApplication::clipboard()->text().isEmpty(),
            &fpSpread::Paste);
        add(QStringLiteral("지우기"), QKeySequence::Delete, !SelectedEditCells(*this).isEmpty(),
            &fpSpread::ClearSelected);
    }
    menu->popup(place);
}

void fpSpread::OpenMenuAtCell()
{
    OpenMenu(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
}

bool fpSpread::HasEditColumn() const
{
    for (int col = 1; col <= MaxCols(); ++col)
        if (ColType(col) == CellType::Edit)
            return true;
    return false;
}

bool fpSpread::OwnerTakesPaste(const QString& text)
{
    bool taken = false;
    if (OnPaste)
        RaiseEvent(*this, [&] { taken = OnPaste(text); });
    return taken;
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
    if (MaxRows() == 0 || MaxCols() == 0)
        return;
    const QModelIndex now = currentIndex();
    int col = now.isValid() ? now.column() : 0;
    if (now.isValid() && !isColumnHidden(col))
        return;
    col = 0;
    while (col < MaxCols() - 1 && isColumnHidden(col))
        ++col;
    selectionModel()->setCurrentIndex(model_->index(now.isValid() ? now.row() : 0, col),
                                      QItemSelectionModel::ClearAndSelect);
}

void fpSpread::ApplyWidths()
{
    layingOut_ = true;
    const int unit = UnitWidth();
    horizontalHeader()->setDefaultSectionSize(qRound(DefaultColWidth * unit));
    verticalHeader()->setFixedWidth(qRound(ColWidth(0) * unit));
    const int content = ContentWidth();
    const int room = viewport()->width();
    const double factor = fillWidth_ && content > 0 && content < room ? double(room) / content : 1.0;
    double end = 0;
    int begin = 0;
    for (const auto& [col, width] : colWidths_) {
        if (col == 0 || isColumnHidden(col - 1))
            continue;
        end += qRound(width * unit) * factor;
        setColumnWidth(col - 1,
                       std::max(qRound(end) - begin, 4)); // from rounded end to rounded end: no pixel is lost
        begin = qRound(end);
    }
    layingOut_ = false;
    WidenLastColumn();
}

void fpSpread::WidenLastColumn()
{
    const bool asWideAsItsColumns = sizeAdjustPolicy() == AdjustToContents;
    int last = MaxCols() - 1;
    while (last >= 0 && isColumnHidden(last))
        --last;
    if (layingOut_ || asWideAsItsColumns || last < 0)
        return;
    const int others = horizontalHeader()->length() - columnWidth(last);
    setColumnWidth(last, std::max(qRound(ColWidth(last + 1) * UnitWidth()), viewport()->width() - others));
}

/// The width of the columns on view as they were set; 0 while some of them were not.
int fpSpread::ContentWidth() const
{
    const int unit = UnitWidth();
    int width = 0;
    for (int col = 1; col <= MaxCols(); ++col) {
        if (isColumnHidden(col - 1))
            continue;
        if (!colWidths_.contains(col))
            return 0;
        width += qRound(ColWidth(col) * unit);
    }
    return width;
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

/// A digit and the air about it, so that a phone number with its hyphens stands in 10.5 units.
int fpSpread::UnitWidth() const
{
    return std::max(8, qRound(DigitWidth(*this) * 1.25));
}

} // namespace tsms
