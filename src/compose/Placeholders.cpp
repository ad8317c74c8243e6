#include "compose/Placeholders.h"

namespace tsms {

QString WithSender(const QString& message, const QString& organisation)
{
    return QString(message).replace(SenderPlaceholder.toString(), organisation);
}

QString WithRecipient(const QString& message, const QString& recipient)
{
    return QString(message).replace(RecipientPlaceholder.toString(), recipient);
}

QString WithInsertion(const QString& text, int caret, QStringView piece)
{
    return text.first(caret) + piece.toString() + text.sliced(caret);
}

} // namespace tsms
