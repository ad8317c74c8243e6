#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace tsms {

/// Code page 949 (Unified Hangul Code), by the platform's own table. A UTF-16 unit that has no code becomes
/// one "?" (so a character outside the basic plane becomes two).
QByteArray ToCodePage949(QStringView text);

/// The text of bytes in code page 949, by the platform's own table. A byte that begins no character becomes
/// one U+FFFD, and so does the pair A2 E8 where it has no character (U+327E in a later edition of KS X 1001).
QString FromCodePage949(const QByteArray& bytes);

/// The length in bytes of the whole text in code page 949, less one for each CR LF pair, so that a line
/// break counts 1. Every blank counts.
int MessageBytes(QStringView text);

/// The count that is shown beside a message field: MessageBytes, but 0 for a text of blanks only.
int ByteCount(QStringView text);

/// The length in UTF-16 units of the longest beginning of `text` whose MessageBytes is at most `limit`.
/// Neither a surrogate pair nor a CR LF pair is halved.
qsizetype FittingLength(QStringView text, int limit);

} // namespace tsms
