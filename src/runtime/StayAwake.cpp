#include "runtime/StayAwake.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace tsms {

namespace {

void KeepAwake([[maybe_unused]] bool awake)
{
#ifdef Q_OS_WIN
    ::SetThreadExecutionState(ES_CONTINUOUS | (awake ? ES_SYSTEM_REQUIRED : 0));
#endif
}

} // namespace

StayAwake::StayAwake()
{
    KeepAwake(true);
}

StayAwake::~StayAwake()
{
    KeepAwake(false);
}

} // namespace tsms
