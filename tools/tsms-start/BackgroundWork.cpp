#include "tsms-start/BackgroundWork.h"

#include <atomic>
#include <mutex>
#include <thread>
#include <utility>

namespace tsms {

namespace {

/// No std::exception, so that no handler of the work takes it for a failure.
struct GivenUp
{
};

std::atomic<int> worksLeft = 0;

} // namespace

/// Where a line ends.
struct BackgroundWork::Line::End
{
    std::mutex mutex;
    QObject* listener = nullptr; ///< null when the work was given up
};

void BackgroundWork::Line::Say(std::function<void()> say) const
{
    const std::lock_guard lock(end_->mutex);
    if (!end_->listener)
        throw GivenUp();
    if (say)
        QMetaObject::invokeMethod(end_->listener, std::move(say), Qt::QueuedConnection);
}

void BackgroundWork::Line::GoOn() const
{
    Say({});
}

void BackgroundWork::Begin(Work work)
{
    GiveUp();
    listener_ = std::make_unique<QObject>();
    line_.end_ = std::make_shared<Line::End>();
    line_.end_->listener = listener_.get();
    const auto end = [this](const std::function<void()>& sayEnd) {
        running_ = false;
        sayEnd();
    };
    linksBefore_ = NetworkLinks();
    ++worksLeft;
    std::thread([line = line_, work = std::move(work), end]() mutable {
        try {
            line.Say([end, sayEnd = std::exchange(work, {})(line)] { end(sayEnd); });
        } catch (const GivenUp&) {
        }
        --worksLeft;
    }).detach();
    running_ = true;
}

void BackgroundWork::GiveUp()
{
    if (!listener_)
        return;
    {
        const std::lock_guard lock(line_.end_->mutex);
        line_.end_->listener = nullptr;
    }
    listener_.reset(); // and with it what was said and not heard yet
    if (!std::exchange(running_, false))
        return;
    for (const NetworkLink& link : NetworkLinks())
        if (!linksBefore_.contains(link))
            CutLink(link);
}

bool BackgroundWork::IsAnyLeft()
{
    return worksLeft > 0;
}

} // namespace tsms
