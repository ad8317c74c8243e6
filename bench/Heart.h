#pragma once

#include "bench/Measure.h"

#include <QTimer>

#include <algorithm>

namespace tsms::bench {

/// Beats with each turn of the event loop, and tells the longest time between two beats.
class Heart
{
public:
    Heart()
    {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Beat(); });
        timer_.start(0);
        last_ = Nanoseconds();
    }

    void Beat()
    {
        const std::int64_t now = Nanoseconds();
        longest_ = std::max(longest_, now - last_);
        last_ = now;
    }

    double Longest() const { return static_cast<double>(longest_); }

private:
    QTimer timer_;
    std::int64_t last_ = 0;
    std::int64_t longest_ = 0;
};

} // namespace tsms::bench
