#pragma once

#include "tsms-gateway/MessageBook.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tsms {

/// The messages as phones received them, newest first: a page that refreshes itself without scripts.
QByteArray PhonesPage(const QList<GatewayMessage>& messages, const QDateTime& now);

/// A plain page with a heading and a sentence.
QByteArray PlainPage(const QString& heading, const QString& words);

/// All messages as a JSON array, oldest first.
QByteArray MessagesJson(const QList<GatewayMessage>& messages, const QDateTime& now);

/// One line that tells of a message.
QString MessageLine(const GatewayMessage& message);

} // namespace tsms
