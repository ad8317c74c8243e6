#pragma once

#include <QByteArray>

namespace tsms::test {

/// A record of a recipient file, with its fields filled up with blanks and cut at their widths. What the
/// program does not read is filled with letters.
inline QByteArray RecipientRecordBytes(const QByteArray& name, const QByteArray& phone)
{
    return QByteArray(21, 'x') + name.leftJustified(20, ' ', true) + phone.leftJustified(16, ' ', true) +
           QByteArray(190, 'y');
}

} // namespace tsms::test
