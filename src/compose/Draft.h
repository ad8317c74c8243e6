#pragma once

#include <QString>

#include <cstdint>

namespace tsms {

class RecipientList;

/// A send as it was asked for: what goes out, and to whom.
struct Draft
{
    const RecipientList& recipients;
    std::int32_t total = 0;   ///< the recipients, counted when the send was asked for
    QString message;          ///< the editor's text, placeholders still in it
    QString senderNumber;     ///< as it stands in its field
    QString reservation = {}; ///< empty for delivery at once, else the five parts joined by ":"
};

} // namespace tsms
