#include "runtime/DoEvents.h"

#include "runtime/ScreenPace.h"

#include <QCoreApplication>

namespace tsms {

namespace {

/// A run calls DoEvents many times between two pictures of the screen, and each call would lay out and paint
/// what nobody sees. What the run draws by itself at the screen's pace comes a little before this.
ScreenPace& EventPace()
{
    static ScreenPace pace(ScreenPace::PictureMilliseconds + 2);
    return pace;
}

} // namespace

void DoEvents()
{
    if (EventPace().IsDue())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void FollowDrawing()
{
    EventPace().MakeDue();
}

} // namespace tsms
