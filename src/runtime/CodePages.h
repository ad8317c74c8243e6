#pragma once

#include <QByteArrayView>
#include <QString>

namespace tsms {

inline constexpr int KoreanCodePage = 949;

/// Whether FromCodePage knows the code page, by its number in Windows: 874, 932, 936, 949, 950, 1250 to 1258
/// and 1361.
bool IsCodePage(int number);

/// The text of bytes in one of these code pages, by the platform's own tables. A byte that begins no
/// character becomes U+FFFD.
QString FromCodePage(QByteArrayView bytes, int number);

} // namespace tsms
