#pragma once

namespace tsms {

class DBConnect;
struct Session;

/// Reads the account row into the session again and has the balance shown. False only when a field cannot
/// be read; a connection or a query that failed has been reported already and gives true.
bool LoadSMSSetup(Session& session, DBConnect& db);

} // namespace tsms
