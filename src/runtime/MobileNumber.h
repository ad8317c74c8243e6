#pragma once

#include <QStringView>

namespace tsms {

/// True when the first three characters of a trimmed number are those of a mobile number: 010, 011, 016, 017,
/// 018 or 019. Each place that asks decides for itself about the length.
bool HasMobilePrefix(QStringView number);

/// The least length in characters of a trimmed number, where a place demands one.
inline constexpr int MobileNumberLength = 10;

} // namespace tsms
