#include "runtime/DoEvents.h"

#include <QCoreApplication>
#include <QElapsedTimer>

namespace tsms {

void DoEvents()
{
    // A screen shows some sixty pictures a second. A run calls this many times between two of them, and each
    // call would lay out and paint what nobody sees.
    constexpr int pictureMilliseconds = 16;
    static QElapsedTimer last;
    if (last.isValid() && last.elapsed() < pictureMilliseconds)
        return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    last.start();
}

} // namespace tsms
