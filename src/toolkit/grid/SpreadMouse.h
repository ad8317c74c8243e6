#pragma once

#include <QPersistentModelIndex>
#include <QPoint>

class QMouseEvent;

namespace tsms {

class fpSpread;

/// What the left button does in a grid: clicks, double clicks, and drags that select a block. A press inside
/// the grid is always used up: what it stands on is not pressed with it.
class SpreadMouse
{
public:
    explicit SpreadMouse(fpSpread& grid) : grid_(grid) {}

    void Press(QMouseEvent& event);
    void Move(QMouseEvent& event);
    void Release(QMouseEvent& event);
    void DoubleClick(QMouseEvent& event);
    void Scrolled(); ///< the cells moved below the mouse

    bool HoldsDown(const QModelIndex& button) const { return down_ && button == pressed_; }

private:
    void EndPress();
    bool Follows(const QMouseEvent& press);
    bool IsButton(const QModelIndex& index) const;

    fpSpread& grid_;
    QPersistentModelIndex pressed_; // the cell of the last press
    QPoint pressPlace_;             // of the last press, and when it came, in milliseconds
    qint64 pressTime_ = 0;
    bool down_ = false;  // the button is held since then
    bool drags_ = false; // and selects what it is moved over
};

} // namespace tsms
