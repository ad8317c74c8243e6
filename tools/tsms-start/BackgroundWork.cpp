#include "tsms-start/BackgroundWork.h"

#include "toolkit/fields/RaiseEvent.h"

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

/// What it lets out; null when that is nothing.
std::exception_ptr FaultIn(const BackgroundWork::Work& work, const BackgroundWork::Line& line)
{
    try {
        work(line);
        return nullptr;
    } catch (const GivenUp&) {
        throw;
    } catch (...) {
        return std::current_exception();
    }
}

} // namespace

/// Where a line ends.
struct BackgroundWork::Line::Listener
{
    std::mutex mutex;
    HandlerFrame* window = nullptr;
    QObject* ear = nullptr; ///< null when the work was given up
};

void BackgroundWork::Line::Say(std::function<void()> say) const
{
    const std::lock_guard lock(listener_->mutex);
    if (!listener_->ear)
        throw GivenUp();
    if (!say)
        return;
    const auto event = [window = listener_->window, say = std::move(say)] { window->RunHandler(say); };
    QMetaObject::invokeMethod(listener_->ear, event, Qt::QueuedConnection);
}

void BackgroundWork::Line::GoOn() const
{
    Say({});
}

void BackgroundWork::Begin(Work work, const End& end)
{
    GiveUp();
    ear_ = std::make_unique<QObject>();
    line_.listener_ = std::make_shared<Line::Listener>();
    line_.listener_->window = &window_;
    line_.listener_->ear = ear_.get();
    const auto sayEnd = [this, end](const std::exception_ptr& fault) {
        running_ = false;
        end(fault);
    };
    linksBefore_ = NetworkLinks();
    ++worksLeft;
    std::thread([line = line_, work = std::move(work), sayEnd]() mutable {
        try {
            const std::exception_ptr fault = FaultIn(std::exchange(work, {}), line);
            line.Say([sayEnd, fault] { sayEnd(fault); });
        } catch (const GivenUp&) {
        }
        --worksLeft;
    }).detach();
    running_ = true;
}

void BackgroundWork::GiveUp()
{
    if (!ear_)
        return;
    {
        const std::lock_guard lock(line_.listener_->mutex);
        line_.listener_->ear = nullptr;
    }
    ear_.reset(); // and with it what was said and not heard yet
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
