#pragma once

#include "store/engine/Connection.h"

namespace tsms {

class Clock;

/// Connections of the program: Open chooses the engine by the connection text. The server "(embedded)" is the
/// database file that Initial Catalog names; its getdate() reads `clock`, which outlives the connections.
/// Every other server is a SQL Server, reached by ODBC.
ConnectionMaker MakeConnections(const Clock& clock);

} // namespace tsms
