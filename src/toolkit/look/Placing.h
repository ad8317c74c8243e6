#pragma once

class QRect;

namespace tsms {

/// The place of a window or a panel, moved no farther than it takes to lie in that room. What is larger than
/// the room has its upper left corner there.
QRect MovedInto(const QRect& place, const QRect& room);

} // namespace tsms
