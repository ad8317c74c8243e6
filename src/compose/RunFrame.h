#pragma once

#include <cstdint>
#include <functional>

namespace tsms {

class DBConnect;
class ModSMS;
class RunDisplay;

/// What a send and a cancellation of so many messages have in common: Busy on and the bar at its start, the
/// database and the gateway client at hand, `walk` over the rows, both let go and Busy off. An error in it
/// ends the run: both are let go, and nothing is shown.
void InRunFrame(DBConnect& db, ModSMS& sms, RunDisplay& display, std::int32_t total,
                const std::function<void()>& walk);

} // namespace tsms
