#pragma once

#include "store/Connection.h"
#include "store/Tables.h"

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
    ScratchDatabase(const QString& launchFields, YearRange years, const Clock& clock);
    ~ScratchDatabase();
    ScratchDatabase(const ScratchDatabase&) = delete;
    ScratchDatabase& operator=(const ScratchDatabase&) = delete;

    /// Sets the session's launch fields so that it reaches this database.
    void Describe(Session& session) const;

    /// An open connection to it.
    Connection& Link() { return *link_; }

private:
    std::unique_ptr<Connection> Connect(const QString& catalog) const;

    QString launchFields_;
    const Clock& clock_;
    QString name_;
    std::unique_ptr<Connection> link_;
};

/// The launch fields that the environment variable TSMS_TEST_SERVER names; empty without one.
QString LiveServer();

} // namespace tsms::test
