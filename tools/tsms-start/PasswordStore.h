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
        Missing, ///< it holds none under that id
        Failed,  ///< there is none on this desk, or it is locked and the user has not opened it
    };

    struct Answer
    {
        Outcome outcome = Outcome::Failed;
        QString password = {};
    };

    virtual ~PasswordStore() = default;

    virtual Answer Read(const QString& id) = 0;
    virtual Outcome Write(const QString& id, const QString& password) = 0;
    virtual Outcome Remove(const QString& id) = 0;
};

} // namespace tsms
