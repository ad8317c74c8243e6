#include "recipients/MobileNumber.h"

#include "runtime/Text.h"

#include <algorithm>
#include <array>

namespace tsms {

namespace {

constexpr int MobileNumberLength = 10;

} // namespace

bool HasMobilePrefix(QStringView number)
{
    static constexpr std::array<QStringView, 6> prefixes{u"010", u"011", u"016", u"017", u"018", u"019"};
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](QStringView prefix) { return number.startsWith(prefix); });
}

bool IsMobileNumber(QStringView number)
{
    const QStringView trimmed = Trimmed(number);
    return HasMobilePrefix(trimmed) && trimmed.size() >= MobileNumberLength;
}

} // namespace tsms
