// The key store where it is the credential store of Windows.
#include "tsms-start/KeychainPasswords.h"

#include <qt_windows.h>
#include <wincred.h>

namespace tsms {

namespace {

/// Under which name a password stands in the store.
QString TargetOf(const QString& id)
{
    return QStringLiteral("tsms-start/") + id;
}

wchar_t* Characters(QString& text)
{
    return reinterpret_cast<wchar_t*>(text.data());
}

/// Of a call that says whether it has succeeded.
PasswordStore::Outcome OutcomeOf(BOOL succeeded)
{
    if (succeeded)
        return PasswordStore::Outcome::Done;
    return ::GetLastError() == ERROR_NOT_FOUND ? PasswordStore::Outcome::Missing
                                               : PasswordStore::Outcome::Failed;
}

} // namespace

PasswordStore::Answer KeychainPasswords::Read(const QString& id)
{
    QString target = TargetOf(id);
    CREDENTIALW* kept = nullptr;
    const Outcome outcome = OutcomeOf(::CredReadW(Characters(target), CRED_TYPE_GENERIC, 0, &kept));
    if (outcome != Outcome::Done)
        return {outcome, {}};
    const QString password(reinterpret_cast<const QChar*>(kept->CredentialBlob),
                           static_cast<qsizetype>(kept->CredentialBlobSize / sizeof(QChar)));
    ::CredFree(kept);
    return {outcome, password};
}

PasswordStore::Outcome KeychainPasswords::Write(const QString& id, const QString& password)
{
    QString target = TargetOf(id);
    QString content = password;
    QString user = QStringLiteral("tsms");
    CREDENTIALW credential = {};
    credential.Type = CRED_TYPE_GENERIC;
    credential.Persist = CRED_PERSIST_LOCAL_MACHINE; // of this user on this machine
    credential.TargetName = Characters(target);
    credential.UserName = Characters(user);
    credential.CredentialBlob = reinterpret_cast<BYTE*>(content.data());
    credential.CredentialBlobSize =
        static_cast<DWORD>(content.size() * static_cast<qsizetype>(sizeof(QChar)));
    return OutcomeOf(::CredWriteW(&credential, 0));
}

PasswordStore::Outcome KeychainPasswords::Remove(const QString& id)
{
    QString target = TargetOf(id);
    return OutcomeOf(::CredDeleteW(Characters(target), CRED_TYPE_GENERIC, 0));
}

} // namespace tsms
