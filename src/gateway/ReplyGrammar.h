#pragma once

#include <QString>
#include <QStringView>

namespace tsms {

/// What the program reads of a gateway's reply.
struct Reply
{
    bool ReturnValue = false;
    QString UniqueNum;
    QString ErrorCode;
    QString ErrorMsg;

    /// The one test of success: neither a failure code nor a failure text. ReturnValue does not matter.
    bool IsAccepted() const;
};

/// Reads items 0, 3, 7 and 8 of `text`, between which ";" stands, in this order into `into`, which is emptied
/// first. Raises 13 when the truth value is none and 9 at the first of these items that is missing; what was
/// read before stays.
void ReadReply(QStringView text, Reply& into);

} // namespace tsms
