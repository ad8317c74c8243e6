#include "toolkit/grid/SpreadMouse.h"

#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/SpreadSelection.h"

#include <QApplication>
#include <QMouseEvent>

namespace tsms {

void SpreadMouse::Press(QMouseEvent& event)
{
    event.accept();
    if (event.button() != Qt::LeftButton)
        return;
    const bool follows = Follows(event);
    const QModelIndex index = grid_.indexAt(event.position().toPoint());
    if (follows && IsButton(index))
        return; // of a double or triple click: what stands here by now may be another row's
    grid_.CommitEdit();
    const bool extends =
        event.modifiers().testFlag(Qt::ShiftModifier) && index.isValid() &&
        grid_.Cells().Type(index.column() + 1) != SpreadModel::CellType::Picture; // a mark is ticked
    pressed_ = extends ? QModelIndex() : index; // what only extends the selection is no click
    down_ = true;
    drags_ = extends;
    if (extends) {
        SelectTo(grid_, index);
    } else if (pressed_.isValid()) {
        grid_.setCurrentIndex(pressed_);
        grid_.update(pressed_);
    }
}

void SpreadMouse::Move(QMouseEvent& event)
{
    event.accept();
    if (down_ && !event.buttons().testFlag(Qt::LeftButton))
        EndPress(); // its release went elsewhere
    if (!down_)
        return;
    const QPoint place = event.position().toPoint();
    const bool moved = (place - pressPlace_).manhattanLength() >= QApplication::startDragDistance();
    drags_ = drags_ || (moved && pressed_.isValid() && !IsButton(pressed_));
    if (!drags_)
        return;
    SelectTo(grid_, CellTowards(grid_, place));
    if (!grid_.viewport()->rect().contains(place))
        grid_.startAutoScroll(); // ends by itself
}

void SpreadMouse::Release(QMouseEvent& event)
{
    event.accept();
    if (event.button() != Qt::LeftButton || !down_)
        return;
    EndPress();
    const QModelIndex released = grid_.indexAt(event.position().toPoint());
    if (released.isValid() && released == pressed_)
        grid_.ClickCell(released);
}

void SpreadMouse::EndPress()
{
    down_ = false;
    grid_.stopAutoScroll();
    if (pressed_.isValid())
        grid_.update(pressed_);
}

void SpreadMouse::DoubleClick(QMouseEvent& event)
{
    const QModelIndex index = grid_.indexAt(event.position().toPoint());
    const bool left = index.isValid() && index != grid_.currentIndex(); // by a key since the first click
    if (event.button() != Qt::LeftButton || index != pressed_ || left || IsButton(index)) {
        Press(event);
        return;
    }
    event.accept();
    const int col = index.isValid() ? index.column() + 1 : -1;
    const int row = index.isValid() ? index.row() + 1 : -1;
    if (grid_.IsEditable(index))
        grid_.edit(index, fpSpread::DoubleClicked, &event);
    Q_EMIT grid_.DblClick(col, row);
}

void SpreadMouse::Scrolled()
{
    if (down_ && drags_)
        SelectTo(grid_, CellTowards(grid_, grid_.viewport()->mapFromGlobal(QCursor::pos())));
}

/// As the second press of a double click follows its first.
bool SpreadMouse::Follows(const QMouseEvent& press)
{
    const auto now = static_cast<qint64>(press.timestamp());
    const QPoint place = press.position().toPoint();
    const bool soon = now - pressTime_ < QApplication::doubleClickInterval();
    const bool near = (place - pressPlace_).manhattanLength() < QApplication::startDragDistance();
    pressTime_ = now;
    pressPlace_ = place;
    return press.type() == QEvent::MouseButtonDblClick || (soon && near);
}

bool SpreadMouse::IsButton(const QModelIndex& index) const
{
    return index.isValid() && grid_.Cells().Type(index.column() + 1) == SpreadModel::CellType::Button;
}

} // namespace tsms
