#pragma once

#include "store/engine/Recordset.h"
#include "store/engine/Statement.h"

#include <QString>

#include <functional>
#include <memory>

namespace tsms {

/// A link to the database. What stands behind it is an engine; every failure is a RuntimeError with a number
/// of store/engine/DatabaseError.h and the server's words.
class Connection
{
public:
    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    virtual ~Connection() = default;

    QString ConnectionString;
    int ConnectionTimeout = 15; ///< seconds that Open may take
    int CommandTimeout = 30;    ///< seconds that a statement may take

    /// Called every so often while Query reads a long result. It does not end the connection: who lets it go
    /// in there keeps it until Query has returned. Its time counts among the statement's. Raises nothing.
    std::function<void()> WhileReading;

    virtual bool IsOpen() const = 0;
    virtual void Open() = 0;  ///< what ConnectionString names
    virtual void Close() = 0; ///< raises nothing

    /// Runs a SELECT and takes all of its result.
    virtual std::unique_ptr<Recordset> Query(const Statement& statement) = 0;

    /// Runs one statement; a result it may have is dropped.
    virtual void Execute(const Statement& statement) = 0;

    /// So many statements that change a row follow: where it can, the engine sees to it that each of them
    /// waits less for the disk. Raises nothing, and does not wait for others.
    virtual void ExpectChanges([[maybe_unused]] int changes) {}
};

using ConnectionMaker = std::function<std::unique_ptr<Connection>()>;

} // namespace tsms
