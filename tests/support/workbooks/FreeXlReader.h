#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace tsms::test {

/// What FreeXL, a reader that is not ours, finds in a workbook.
struct ReadBook
{
    QStringList sheets;
    QList<QVariantList> rows; ///< of the first sheet: texts, doubles, and null for no cell
};

/// Fails the test when FreeXL finds fault with the file. FreeXL 1.0 cannot read a text that goes over more
/// than two records, which one of at most 8,220 bytes never does.
ReadBook ReadWithFreeXl(const QString& path);

} // namespace tsms::test
