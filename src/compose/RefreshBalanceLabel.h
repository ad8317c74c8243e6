#pragma once

namespace tsms {

class DBConnect;
struct Session;

/// Has the main window show the balance after a run. It asks the database whether the account row is there
/// but shows the session's figure, which is that from before the run, until the next LoadSMSSetup.
void RefreshBalanceLabel(Session& session, DBConnect& db);

} // namespace tsms
