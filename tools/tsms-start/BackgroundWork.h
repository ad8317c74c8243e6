#pragma once

#include "runtime/NetworkLinks.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tsms {

/// Work that may have to wait for a server, in a thread of its own, while the windows stay alive. What it has
/// to say is said in the thread that began it. Nobody waits for work that is given up: the network links that
/// have come since it began are cut, where the system can do that, and it ends as soon as it has something to
/// say.
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
        struct End;
        std::shared_ptr<End> end_;
    };
    /// Takes with it what it needs, raises nothing of its own, and gives what is to be said at its end.
    using Work = std::function<std::function<void()>(const Line&)>;

    BackgroundWork() = default;
    ~BackgroundWork() { GiveUp(); }
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;

    /// Begins at once, in place of what still runs.
    void Begin(Work work);

    /// Until its end is said.
    bool IsRunning() const { return running_; }

    /// From here on nothing of it is said.
    void GiveUp();

    /// Whether work of this process still runs, given up or not.
    static bool IsAnyLeft();

private:
    Line line_;
    std::unique_ptr<QObject> listener_;
    QList<NetworkLink> linksBefore_;
    bool running_ = false;
};

} // namespace tsms
