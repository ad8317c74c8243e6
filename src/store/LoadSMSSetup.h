#pragma once

#include "runtime/Boolean.h"

namespace tsms {

class DBConnect;
struct Session;

/// Reads the account row into the session again and has the balance shown. Returns 0 only when a field cannot
/// be read; a connection or a query that failed has been reported already and answers -1.
Boolean LoadSMSSetup(Session& session, DBConnect& db);

} // namespace tsms
