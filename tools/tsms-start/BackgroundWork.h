#pragma once

#include "runtime/NetworkLinks.h"

#include <QObject>

#include <exception>
#include <functional>
#include <memory>

namespace tsms {

class HandlerFrame;

/// Work that may have to wait for a server, in a thread of its own, while the windows stay alive. What it has
/// to say is said in the thread that began it, as an event of the window. Nobody waits for work that is given
/// up: the network links that have come since it began are cut, where the system can do that, and it ends as
/// soon as it has something to say.
class BackgroundWork
{
public:
    /// What the work talks by.
    class Line
    {
    public:
        /// Has `say` run soon in the thread that began the work. Ends the work, by an exception that is none
        /// of its business, when it was given up.
        void Say(std::function<void()> say) const;

        /// Ends the work as Say does, and says nothing.
        void GoOn() const;

    private:
        friend class BackgroundWork;
        struct Listener;
        std::shared_ptr<Listener> listener_;
    };
    /// Takes with it what it needs.
    using Work = std::function<void(const Line&)>;

    /// Is said at the end of the work, with what it has let out, to be raised here; null when that is
    /// nothing.
    using End = std::function<void(const std::exception_ptr& fault)>;

    /// `window` catches what the work's words let out, and outlives it.
    explicit BackgroundWork(HandlerFrame& window) : window_(window) {}
    ~BackgroundWork() { GiveUp(); }
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;

    /// Begins at once, in place of what still runs.
    void Begin(Work work, const End& end);

    /// Until its end is said.
    bool IsRunning() const { return running_; }

    /// From here on nothing of it is said.
    void GiveUp();

    /// Whether work of this process still runs, given up or not.
    static bool IsAnyLeft();

private:
    HandlerFrame& window_;
    Line line_;
    std::unique_ptr<QObject> ear_;
    QList<NetworkLink> linksBefore_;
    bool running_ = false;
};

} // namespace tsms
