#pragma once

#include "runtime/Clock.h"

namespace tsms::test {

/// A clock that stands until it is set.
class FixedClock final : public Clock
{
public:
    explicit FixedClock(QDateTime now = QDateTime(QDate(2012, 5, 30), QTime(14, 7, 9))) : now_(now) {}
    QDateTime Now() const override { return now_; }
    void Set(QDateTime now) { now_ = now; }

private:
    QDateTime now_;
};

} // namespace tsms::test
