#pragma once

#include <QString>

namespace tsms {

/// Where passwords are kept that a user does not want to be asked for: the desk's own key store, never a
/// file of the program's.
class PasswordStore
{
public:
    enum class Outcome {
        Done,
        Missing,   ///< it holds none under that id
        NotThere,  ///< no key store answers on this desk
        NotOpened, ///< it is locked, and the user did not open it, or it failed otherwise
    };

    struct Answer
    {
        Outcome outcome = Outcome::NotThere;
        QString password = {};
    };

    virtual ~PasswordStore() = default;

    virtual Answer Read(const QString& id) = 0;
    virtual Outcome Write(const QString& id, const QString& password) = 0;
    virtual Outcome Remove(const QString& id) = 0;
};

} // namespace tsms
