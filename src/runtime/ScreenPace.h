#pragma once

#include <QElapsedTimer>

namespace tsms {

/// The pace of a screen, which shows some sixty pictures a second: drawing more often shows nothing more.
class ScreenPace
{
public:
    static constexpr int PictureMilliseconds = 16;

    explicit ScreenPace(int milliseconds = PictureMilliseconds) : milliseconds_(milliseconds) {}

    /// True when the screen could show another picture since the last time that this was true.
    bool IsDue()
    {
        if (last_.isValid() && last_.elapsed() < milliseconds_)
            return false;
        last_.start();
        return true;
    }

    void MakeDue() { last_.invalidate(); }

private:
    int milliseconds_;
    QElapsedTimer last_;
};

} // namespace tsms
