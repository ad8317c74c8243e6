#include "store/odbc/LinkWatch.h"

#include <chrono>
#include <system_error>

namespace tsms {

LinkWatch::LinkWatch(const QList<NetworkLink>& links, int seconds)
{
    if (links.isEmpty() || seconds <= 0)
        return;
    try {
        thread_ = std::thread([this, links, seconds] { Wait(links, seconds); });
    } catch (const std::system_error&) {
        // A machine without a thread to spare: the call has the driver's own time-out still.
    }
}

LinkWatch::~LinkWatch()
{
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
    }
    ended_.notify_one();
    thread_.join();
}

bool LinkWatch::HasCut() const
{
    const std::lock_guard lock(mutex_);
    return hasCut_;
}

void LinkWatch::Wait(const QList<NetworkLink>& links, int seconds)
{
    std::unique_lock lock(mutex_);
    if (ended_.wait_for(lock, std::chrono::seconds(seconds), [this] { return isOver_; }))
        return;
    hasCut_ = true;
    for (const NetworkLink& link : links)
        CutLink(link);
}

} // namespace tsms
