#pragma once

#include <QString>
#include <QStringList>

namespace tsms::test {

/// The text of a document of docs/.
QString DocumentText(const QString& document);

/// The blocks of a document that are fenced as being in that language, in their order.
QStringList Blocks(const QString& document, const QString& language);

} // namespace tsms::test
