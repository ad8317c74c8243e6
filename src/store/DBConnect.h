#pragma once

#include "store/engine/Connection.h"
#include "store/engine/Statement.h"

#include <functional>
#include <memory>

namespace tsms {

class Desktop;
struct Session;

/// The one way to the database. It holds one connection and one current recordset, both replaced at each use;
/// nothing stands between two operations. A failure of any routine here is shown by ReportDBError and told by
/// false.
class DBConnect
{
public:
    DBConnect(Session& session, Desktop& desktop, ConnectionMaker makeConnection);

    /// Opens a new connection by the session's launch fields, in place of the one that stands.
    bool ConnectDB();

    /// The beginning of every operation: ConnectDB, and once more if that failed. The second result is
    /// not looked at.
    void ConnectWithRetry();

    void CloseDB();  ///< lets the recordset and the connection go, if they stand
    void CloseDB2(); ///< the second set of objects, which nothing opens

    /// Replaces the current recordset by the result of a SELECT.
    bool OpenRecordset(const Statement& statement);

    /// OpenRecordset, and when that succeeded, `read` with the result. What `read` raises passes by.
    bool Select(const Statement& statement, const std::function<void(Recordset&)>& read);

    /// Runs one statement.
    bool ExecuteSQL(const Statement& statement);

    /// Tells the connection, if there is one, that so many statements that change a row may follow. The first
    /// accepted row of a run is the place: the gateway is then listened to anyway.
    void ExpectChanges(int changes);

    /// Closes the database objects, clears Busy and tells the user of the current error: nothing when there
    /// is none, and a quiet new connection instead of a box when an object was not set.
    void ReportDBError();

    /// The current recordset. Raises 91 when there is none.
    Recordset& Records();

    /// The current recordset to keep: it survives CloseDB and the next OpenRecordset. Raises 91.
    std::shared_ptr<const Recordset> ShareRecords();

private:
    struct Objects
    {
        std::shared_ptr<Recordset> records;
        std::shared_ptr<Connection> connection;
    };

    static void Release(Objects& objects);
    Connection& OpenConnection();

    Session& session_;
    Desktop& desktop_;
    ConnectionMaker makeConnection_;
    Objects objects_;
    Objects objects2_;
};

} // namespace tsms
