#pragma once

#include <QStringView>

namespace tsms {

/// True when the first three characters of a trimmed number are those of a mobile number: 010, 011, 016, 017,
/// 018 or 019.
bool HasMobilePrefix(QStringView number);

/// True when a number, blanks about it apart, begins like a mobile number and has 10 characters or more,
/// whatever these are.
bool IsMobileNumber(QStringView number);

} // namespace tsms
