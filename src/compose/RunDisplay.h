#pragma once

#include <QString>

namespace tsms {

/// What a run shows while it goes on. The run does not return to the event loop: SetBarValue, with which a
/// row ends, draws what has changed, at the pace of the screen.
class RunDisplay
{
public:
    virtual ~RunDisplay() = default;
    virtual void SetRunBusy(bool busy) = 0;
    virtual void SetBarMaximum(int maximum) = 0;
    virtual void SetBarValue(int value) = 0;
    virtual void ShowCounts(const QString& succeeded, const QString& failed) = 0;
    virtual void ShowStatus(const QString& text) = 0;
};

} // namespace tsms
