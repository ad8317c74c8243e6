#pragma once

namespace tsms {

/// While one lives, a Windows does not go to sleep because nobody touches it; its screen may go dark. A
/// person can still send it to sleep. Of the thread that makes it, which ends it too; one at a time.
/// Elsewhere it does nothing.
class StayAwake
{
public:
    StayAwake();
    ~StayAwake();
    StayAwake(const StayAwake&) = delete;
    StayAwake& operator=(const StayAwake&) = delete;
};

} // namespace tsms
