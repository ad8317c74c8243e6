#pragma once

#include <QString>
#include <QStringView>

namespace tsms {

/// The most that a cell holds, in UTF-16 units.
inline constexpr qsizetype MaxCellText = 32767;

/// A text in the form that a cell can hold and every reader takes: a line break (CR LF, CR or LF) is one LF,
/// a NUL a blank, half a surrogate pair U+FFFD. It ends after MaxCellText units, and not inside a pair. All
/// other characters stay, control characters too.
///
/// The result is a view of `text` itself, or of `changed` where something had to be changed.
QStringView SheetText(QStringView text, QString& changed);

} // namespace tsms
