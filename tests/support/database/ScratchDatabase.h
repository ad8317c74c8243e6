#pragma once

#include "store/engine/Connection.h"
#include "store/engine/Tables.h"

#include <QString>

#include <memory>

namespace tsms {
struct Session;
}

namespace tsms::test {

/// A database of its own on a real server, made by the script that a database's owner would run, and dropped
/// at the end.
class ScratchDatabase
{
public:
    /// `launchFields` are the first five fields of a launch line, whose log-in may create databases. Raises
    /// what the connection raises.
    ScratchDatabase(const QString& launchFields, YearRange years);
    ~ScratchDatabase();
    ScratchDatabase(const ScratchDatabase&) = delete;
    ScratchDatabase& operator=(const ScratchDatabase&) = delete;

    YearRange Years() const { return years_; }

    /// Makes it what the script made it: the account row alone, and keys from 1. Raises what the connection
    /// raises, such as for a table that has been dropped.
    void Empty();

    /// Sets the session's launch fields so that it reaches this database.
    void Describe(Session& session) const;

    /// An open connection to it.
    Connection& Link() { return *link_; }

private:
    void Drop() const;

    QString launchFields_;
    YearRange years_;
    QString name_;
    std::unique_ptr<Connection> link_;
};

/// A scratch database as the script makes it, on the server that TSMS_TEST_SERVER names. To make one takes a
/// server seconds, so a test gets what another has given back; the program's end drops them all.
std::unique_ptr<ScratchDatabase> BorrowScratchDatabase(YearRange years);
void GiveBack(std::unique_ptr<ScratchDatabase> database);
void DropIdleDatabases(); ///< those that have been given back

/// The launch fields that the environment variable TSMS_TEST_SERVER names; empty without one.
QString LiveServer();

/// What that server says it is: "Microsoft SQL Server …, us_english".
QString LiveServerVersion();
/// True of such a version: its words are those of Microsoft SQL Server, in English.
bool SpeaksAsSqlServer(const QString& version);

} // namespace tsms::test
