#pragma once

#include <QString>

namespace tsms {

class Clock;
class DBConnect;
class Desktop;
class ModSMS;
struct Session;

/// What a form is handed to work with. The composition root owns all of it and outlives every form.
struct Services
{
    Session& session;
    Desktop& desktop;
    const Clock& clock;
    DBConnect& db;
    ModSMS& sms;
    QString applicationPath{}; ///< the folder of the program, without a separator at its end
};

} // namespace tsms
