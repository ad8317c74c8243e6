#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace tsms {

/// The rows of a text as spreadsheets put them on the clipboard: lines, the last one with or without a line
/// break, their values parted by tabs. A value in quotes holds tabs, line breaks and, doubled, quotes; of a
/// value with a line break what stands before it is taken. Values are trimmed. Empty
/// lines at the end are no rows.
QList<QStringList> PastedRows(QStringView text);

/// Such a text. A single value stands as it is.
QString CopiedText(const QList<QStringList>& rows);

/// True for what has more than one row or more than one value.
bool IsBlock(const QList<QStringList>& rows);

} // namespace tsms
