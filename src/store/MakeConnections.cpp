#include "store/MakeConnections.h"

#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/engine/ConnectionText.h"
#include "store/odbc/OdbcConnection.h"

namespace tsms {

namespace {

/// A connection whose engine is not known before it is opened.
class ChosenConnection final : public Connection
{
public:
    explicit ChosenConnection(const Clock& clock) : clock_(clock) {}

    bool IsOpen() const override { return engine_ && engine_->IsOpen(); }

    void Open() override
    {
        engine_ = Choose();
        engine_->ConnectionString = ConnectionString;
        engine_->ConnectionTimeout = ConnectionTimeout;
        engine_->CommandTimeout = CommandTimeout;
        engine_->WhileReading = WhileReading;
        engine_->Open();
    }

    void Close() override { engine_.reset(); }
    std::unique_ptr<Recordset> Query(const Statement& statement) override
    {
        return Engine().Query(statement);
    }
    void Execute(const Statement& statement) override { Engine().Execute(statement); }
    void ExpectChanges(int changes) override
    {
        if (engine_)
            engine_->ExpectChanges(changes);
    }

private:
    std::unique_ptr<Connection> Choose() const
    {
        if (IsEmbeddedServer(ParseConnectionText(ConnectionString).server))
            return std::make_unique<EmbeddedConnection>(clock_);
        return std::make_unique<OdbcConnection>(InstalledOdbcDrivers());
    }

    Connection& Engine()
    {
        if (!engine_)
            throw RuntimeError(ObjectNotSet);
        return *engine_;
    }

    const Clock& clock_;
    std::unique_ptr<Connection> engine_;
};

} // namespace

ConnectionMaker MakeConnections(const Clock& clock)
{
    return [&clock] { return std::make_unique<ChosenConnection>(clock); };
}

} // namespace tsms
