#pragma once

#include <QByteArrayView>
#include <QString>

namespace tsms {

/// A record of a recipient file: 19 fields of fixed width one behind the other, in code page 949, filled up
/// with blanks. Two of them matter here.
///
/// | Field | Offset | Width | |
/// |---|---|---|---|
/// | 3 | 21 | 20 | recipient's name |
/// | 4 | 41 | 16 | mobile number |
struct RecipientRecord
{
    static constexpr int Size = 247; ///< bytes

    QString name;
    QString phone; ///< both without the blanks about them, and without the half of a character at their end

    /// `bytes` are Size bytes.
    static RecipientRecord Of(QByteArrayView bytes);
};

} // namespace tsms
