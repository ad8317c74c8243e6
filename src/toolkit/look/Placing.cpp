#include "toolkit/look/Placing.h"

#include <QRect>

#include <algorithm>

namespace tsms {

QRect MovedInto(const QRect& place, const QRect& room)
{
    QRect moved = place;
    moved.moveRight(std::min(moved.right(), room.right()));
    moved.moveBottom(std::min(moved.bottom(), room.bottom()));
    moved.moveLeft(std::max(moved.left(), room.left()));
    moved.moveTop(std::max(moved.top(), room.top()));
    return moved;
}

} // namespace tsms
