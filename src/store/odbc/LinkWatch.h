#pragma once

#include "runtime/NetworkLinks.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tsms {

/// Cuts the links of a connection when a call over them takes too long: from its making to its end it gives
/// the call so many seconds (0: any time). Its thread touches nothing but sockets.
class LinkWatch
{
public:
    LinkWatch(const QList<NetworkLink>& links, int seconds);
    ~LinkWatch();
    LinkWatch(const LinkWatch&) = delete;
    LinkWatch& operator=(const LinkWatch&) = delete;

    bool HasCut() const;

private:
    void Wait(const QList<NetworkLink>& links, int seconds);

    mutable std::mutex mutex_;
    std::condition_variable ended_;
    bool isOver_ = false;
    bool hasCut_ = false;
    std::thread thread_;
};

} // namespace tsms
