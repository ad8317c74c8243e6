#pragma once

#include "store/engine/Connection.h"
#include "tsms-start/ConnectionList.h"
#include "tsms-start/ConnectionTest.h"
#include "tsms-start/PasswordStore.h"

#include <QString>

#include <functional>

namespace tsms {

class Clock;
class Desktop;
struct Session;

/// What the windows of tsms-start are handed to work with.
struct StartServices
{
    Session& session; ///< for Busy alone
    Desktop& desktop;
    const Clock& clock;
    ConnectionList& connections;
    PasswordStore& passwords;
    ConnectionMaker makeConnection;
    GatewayLook gateway;
    std::function<bool(const QString& launchLine)> launch; ///< false when the program is not there
    bool offersDemo = false; ///< built for the simulated gateway, the only one that knows the demo's account
    QString dataFolder = {}; ///< where a new database file is proposed
};

} // namespace tsms
