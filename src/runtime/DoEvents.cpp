#include "runtime/DoEvents.h"

#include <QCoreApplication>

namespace tsms {

void DoEvents()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace tsms
