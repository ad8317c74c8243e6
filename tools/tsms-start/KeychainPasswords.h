#pragma once

#include "tsms-start/PasswordStore.h"

namespace tsms {

/// The key store of the desk: by QtKeychain the Secret Service or KWallet, and on Windows its credential
/// store. Without one it keeps nothing. A call returns when the store has answered; it may ask the user to
/// open it meanwhile.
class KeychainPasswords final : public PasswordStore
{
public:
    Answer Read(const QString& id) override;
    Outcome Write(const QString& id, const QString& password) override;
    Outcome Remove(const QString& id) override;
};

} // namespace tsms
