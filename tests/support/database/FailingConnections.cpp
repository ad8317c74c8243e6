#include "support/database/TestDatabase.h"

#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"

namespace tsms::test {

class FailingConnections::Wrapped final : public Connection
{
public:
    Wrapped(FailingConnections& owner, std::unique_ptr<Connection> inner)
        : owner_(owner), inner_(std::move(inner))
    {
    }
    ~Wrapped() override { Wrapped::Close(); }

    bool IsOpen() const override { return inner_->IsOpen(); }

    void Open() override
    {
        ++owner_.opens_;
        if (owner_.refuse_ != 0) {
            owner_.refuse_ -= owner_.refuse_ > 0 ? 1 : 0;
            throw RuntimeError(CommunicationFailure,
                               QStringLiteral("SQL Server does not exist or access denied."));
        }
        inner_->ConnectionString = ConnectionString;
        inner_->ConnectionTimeout = ConnectionTimeout;
        inner_->CommandTimeout = CommandTimeout;
        inner_->WhileReading = WhileReading;
        inner_->Open();
        generation_ = owner_.generation_;
        ++owner_.connected_;
        ++owner_.openNow_;
    }

    void Close() override
    {
        owner_.openNow_ -= inner_->IsOpen() ? 1 : 0;
        inner_->Close();
    }

    std::unique_ptr<Recordset> Query(const Statement& statement) override
    {
        owner_.Pass(statement.Text(), generation_);
        return inner_->Query(statement);
    }

    void Execute(const Statement& statement) override
    {
        owner_.Pass(statement.Text(), generation_);
        inner_->Execute(statement);
    }

    void ExpectChanges(int changes) override
    {
        owner_.expected_ += changes;
        inner_->ExpectChanges(changes);
    }

private:
    FailingConnections& owner_;
    std::unique_ptr<Connection> inner_;
    int generation_ = 0;
};

FailingConnections::FailingConnections(ConnectionMaker inner) : inner_(std::move(inner)) {}

ConnectionMaker FailingConnections::Maker()
{
    return [this] { return std::make_unique<Wrapped>(*this, inner_()); };
}

void FailingConnections::RefuseOpens(int times)
{
    refuse_ = times;
}

void FailingConnections::FailStatement(int nth, long number, const QString& description)
{
    failIn_ = nth;
    failNumber_ = number;
    failWords_ = description;
}

void FailingConnections::Cut()
{
    ++generation_;
}

void FailingConnections::Pass(const QString& sql, int generation)
{
    if (look_)
        look_(sql);
    if (generation != generation_)
        throw RuntimeError(CommunicationFailure, QStringLiteral("Connection failure"));
    if (failIn_ > 0 && --failIn_ == 0)
        throw RuntimeError(failNumber_, failWords_);
    statements_ += sql;
}

} // namespace tsms::test
