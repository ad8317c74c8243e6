#pragma once

#include <QDateTime>

namespace tsms {

/// Where the program reads the time. The embedded database's getdate() reads the same clock.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0; ///< local time
    QDate Date() const { return Now().date(); }
};

/// "YYYY-MM-DD HH:MM:SS", of a valid moment of the years 1 to 9999. A row of a run asks for it twice: a
/// pattern costs twenty times as much.
QString MomentText(const QDateTime& moment);

/// The machine's clock.
class SystemClock final : public Clock
{
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
};

} // namespace tsms
