#pragma once

#include <QString>
#include <QStringView>

namespace tsms {

/// Stands in a message for the organisation's name.
inline constexpr QStringView SenderPlaceholder = u"[보내는사람]";
/// Stands in a message for the recipient's name.
inline constexpr QStringView RecipientPlaceholder = u"[받는사람]";

/// `message` with every sender placeholder replaced by `organisation`.
QString WithSender(const QString& message, const QString& organisation);

/// `message` with every recipient placeholder replaced by `recipient`, which may be empty.
QString WithRecipient(const QString& message, const QString& recipient);

/// What the insertion of `piece` at the caret leaves in a text. The selection plays no part.
QString WithInsertion(const QString& text, int caret, QStringView piece);

} // namespace tsms
