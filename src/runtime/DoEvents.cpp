#include "runtime/DoEvents.h"

#include "runtime/ScreenPace.h"

#include <QCoreApplication>

namespace tsms {

void DoEvents()
{
    // A run calls this many times between two pictures of the screen, and each call would lay out and paint
    // what nobody sees.
    static ScreenPace pace;
    if (pace.IsDue())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace tsms
