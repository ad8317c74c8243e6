#include "runtime/StayAwake.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace tsms {

StayAwake::StayAwake()
{
#ifdef Q_OS_WIN
    ::SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED);
#endif
}

StayAwake::~StayAwake()
{
#ifdef Q_OS_WIN
    ::SetThreadExecutionState(ES_CONTINUOUS);
#endif
}

} // namespace tsms
