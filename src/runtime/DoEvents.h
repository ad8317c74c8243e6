#pragma once

namespace tsms {

/// Lets windows repaint in the middle of an operation. Keys and clicks are kept for later, so none of them
/// enters a handler from inside another, while timers and queued calls may; what waits when a modal box opens
/// is dropped by the box, as it should. Called again before the screen could have shown another picture, it
/// does nothing.
void DoEvents();

/// Tells that an operation has just drawn what it shows: the next DoEvents does something, whatever
/// the pace.
void FollowDrawing();

} // namespace tsms
