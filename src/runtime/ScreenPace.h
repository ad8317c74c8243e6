#pragma once

#include <QElapsedTimer>

namespace tsms {

/// The pace of a screen, which shows some sixty pictures a second: drawing more often shows nothing more.
class ScreenPace
{
public:
    /// True when the screen could show another picture since the last time that this was true.
    bool IsDue()
    {
        constexpr int pictureMilliseconds = 16;
        if (last_.isValid() && last_.elapsed() < pictureMilliseconds)
            return false;
        last_.start();
        return true;
    }

private:
    QElapsedTimer last_;
};

} // namespace tsms
