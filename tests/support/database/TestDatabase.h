#pragma once

#include "store/engine/Tables.h"
#include "store/MakeConnections.h"
#include "support/database/TestEngine.h"
#include "support/FixedClock.h"

#include <QList>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

struct sqlite3;

namespace tsms {
struct Session;
}

namespace tsms::test {

class ScratchDatabase;
class TestServer;

/// A fresh embedded database, or a copy of the file `original`, in a folder of its own, and a second way to
/// its rows that does not pass through the program: plain SQL on a handle of its own. The program reaches it
/// on the file itself or from a server that stands before it, whichever engine the tests run with. With a
/// real server there is a scratch database instead of the file.
class TestDatabase
{
public:
    explicit TestDatabase(const Clock& clock, YearRange years = {2010, 2030},
                          TestEngine engine = ChosenTestEngine(), const QString& original = {});
    ~TestDatabase();

    QString Path() const;   ///< of the database file
    QString Folder() const; ///< the folder that holds nothing else
    const Clock& TheClock() const { return clock_; }

    /// Connections as the program makes them.
    ConnectionMaker Connections() const { return MakeConnections(clock_); }

    /// Sets the session's launch fields so that it reaches this database.
    void Describe(Session& session) const;

    /// The server before the file; null with any other engine.
    TestServer* Server() const { return server_.get(); }

    /// The account row: id, password, domain, sender number, organisation and balance; the pages' addresses.
    void SetAccount(int balance = 100);

    // What these are given has to mean the same to the embedded engine and to a real server.
    void Execute(const QString& sql);
    /// Puts rows into "Table (Column, Column)", each given by its values: "1, '김하늘'".
    void Insert(const QString& into, const QStringList& rows);
    QList<QStringList> Rows(const QString& sql); ///< a NULL reads as "(null)"
    QString Value(const QString& sql);           ///< first column of the first row, "(no row)" without one
    int Count(const QString& table);

private:
    sqlite3* Handle();

    const Clock& clock_;
    QTemporaryDir folder_;
    sqlite3* handle_ = nullptr;
    std::unique_ptr<TestServer> server_;
    std::unique_ptr<ScratchDatabase> scratch_;
};

/// Connections that can be told to fail. They wrap a maker and count what passes.
class FailingConnections
{
public:
    explicit FailingConnections(ConnectionMaker inner);

    /// The maker to hand out. This object outlives what it makes.
    ConnectionMaker Maker();

    void RefuseOpens(int times); ///< the next Opens fail as with a dead server; -1: all from now on
    void FailStatement(int nth, long number,
                       const QString& description); ///< the n-th from now, counted from 1
    void Cut(); ///< every statement of the connections open now fails; new ones work
    void BeforeStatement(std::function<void(const QString&)> look) { look_ = std::move(look); }

    int Opens() const { return opens_; }         ///< tried
    int Connected() const { return connected_; } ///< that succeeded
    int OpenNow() const { return openNow_; }     ///< connections open at this moment
    /// That reached a connection, in their order.
    const QStringList& Statements() const { return statements_; }
    /// Changes that were told of ahead.
    const QList<int>& Expected() const { return expected_; }

private:
    class Wrapped;
    void Pass(const QString& sql, int generation);

    ConnectionMaker inner_;
    std::function<void(const QString&)> look_;
    QStringList statements_;
    QList<int> expected_;
    int opens_ = 0;
    int connected_ = 0;
    int openNow_ = 0;
    int refuse_ = 0;
    int failIn_ = 0;
    long failNumber_ = 0;
    QString failWords_;
    int generation_ = 0;
};

} // namespace tsms::test
