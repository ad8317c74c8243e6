#include "support/server/ServerConduct.h"

#include <chrono>
#include <utility>

namespace tsms::test {

namespace {

using Lock = std::lock_guard<std::mutex>;

/// Bounds a wait for what is about to happen; nothing depends on how long it takes.
constexpr std::chrono::seconds Patience(20);

} // namespace

void ServerConduct::SetLogIn(LogIn conduct)
{
    const Lock lock(mutex_);
    logIn_ = conduct;
}

void ServerConduct::RefuseLogIns(const QList<ServerError>& errors)
{
    const Lock lock(mutex_);
    logIn_ = LogIn::Refuse;
    refusal_ = errors;
}

ServerConduct::LogIn ServerConduct::TheLogIn() const
{
    const Lock lock(mutex_);
    return logIn_;
}

QList<ServerError> ServerConduct::Refusal() const
{
    const Lock lock(mutex_);
    return refusal_;
}

void ServerConduct::AddFault(const StatementFault& fault, int nth)
{
    const Lock lock(mutex_);
    faults_ += {fault, nth, {}};
}

void ServerConduct::AddFault(const StatementFault& fault, const QString& part)
{
    const Lock lock(mutex_);
    faults_ += {fault, 0, part};
}

void ServerConduct::AddFault(LogInFault fault, int nth)
{
    const Lock lock(mutex_);
    logInFault_ = fault;
    logInFaultIn_ = nth;
}

void ServerConduct::LeaveWithFault()
{
    const Lock lock(mutex_);
    leaves_ = true;
}

bool ServerConduct::TakeLeave()
{
    const Lock lock(mutex_);
    return std::exchange(leaves_, false);
}

void ServerConduct::BehaveAgain()
{
    const Lock lock(mutex_);
    logIn_ = LogIn::Right;
    logInFaultIn_ = 0;
    leaves_ = false;
    faults_.clear();
}

std::optional<LogInFault> ServerConduct::NoteLogIn(const ServerLogin& logIn)
{
    const Lock lock(mutex_);
    logIns_ += logIn;
    if (logInFaultIn_ == 0 || --logInFaultIn_ > 0)
        return std::nullopt;
    if (logInFault_ == LogInFault::RefuseOnward) {
        logIn_ = LogIn::Refuse;
        refusal_.clear();
    }
    return logInFault_;
}

void ServerConduct::NoteConnection(int change)
{
    const Lock lock(mutex_);
    open_ += change;
    connections_ += change > 0 ? change : 0;
    changed_.notify_all();
}

std::optional<StatementFault> ServerConduct::NoteStatement(const QString& sql)
{
    const Lock lock(mutex_);
    statements_ += sql;
    changed_.notify_all();
    std::optional<StatementFault> hit;
    for (qsizetype at = 0; at < faults_.size();) {
        Pending& pending = faults_[at];
        const bool isCounted = pending.nth > 0;
        const bool hits = isCounted ? --pending.nth == 0 : sql.contains(pending.part);
        if (hits && !hit)
            hit = pending.fault;
        if (hits && isCounted)
            faults_.removeAt(at);
        else
            ++at;
    }
    return hit;
}

QList<ServerLogin> ServerConduct::LogIns() const
{
    const Lock lock(mutex_);
    return logIns_;
}

QStringList ServerConduct::Statements() const
{
    const Lock lock(mutex_);
    return statements_;
}

int ServerConduct::Connections() const
{
    const Lock lock(mutex_);
    return connections_;
}

template <class Reached> bool ServerConduct::Wait(Reached reached) const
{
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, Patience, reached);
}

bool ServerConduct::WaitForOpen(int connections) const
{
    return Wait([this, connections] { return open_ == connections; });
}

bool ServerConduct::WaitForStatements(int count) const
{
    return Wait([this, count] { return statements_.size() >= count; });
}

} // namespace tsms::test
