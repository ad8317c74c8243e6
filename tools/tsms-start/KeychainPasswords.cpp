#include "tsms-start/KeychainPasswords.h"

#include <qt6keychain/keychain.h>

#include <QEventLoop>

namespace tsms {

namespace {

/// Under which name the passwords stand in the store.
const QString Service = QStringLiteral("tsms-start");

PasswordStore::Outcome OutcomeOf(QKeychain::Error error)
{
    switch (error) {
    case QKeychain::NoError:
        return PasswordStore::Outcome::Done;
    case QKeychain::EntryNotFound:
        return PasswordStore::Outcome::Missing;
    default:
        return PasswordStore::Outcome::Failed;
    }
}

PasswordStore::Outcome Perform(QKeychain::Job& job, const QString& id)
{
    job.setAutoDelete(false);
    job.setInsecureFallback(false);
    job.setKey(id);
    QEventLoop loop;
    QObject::connect(&job, &QKeychain::Job::finished, &loop, &QEventLoop::quit, Qt::QueuedConnection);
    job.start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return OutcomeOf(job.error());
}

} // namespace

PasswordStore::Answer KeychainPasswords::Read(const QString& id)
{
    QKeychain::ReadPasswordJob job(Service);
    const Outcome outcome = Perform(job, id);
    return {outcome, outcome == Outcome::Done ? job.textData() : QString()};
}

PasswordStore::Outcome KeychainPasswords::Write(const QString& id, const QString& password)
{
    QKeychain::WritePasswordJob job(Service);
    job.setTextData(password);
    return Perform(job, id);
}

PasswordStore::Outcome KeychainPasswords::Remove(const QString& id)
{
    QKeychain::DeletePasswordJob job(Service);
    return Perform(job, id);
}

} // namespace tsms
