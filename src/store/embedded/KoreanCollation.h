#pragma once

#include <string_view>

namespace tsms {

/// Compares two UTF-8 texts in the server's manner: below 0, 0 or above 0. Case and width make no difference,
/// nor do trailing blanks. Hyphens and apostrophes count only between texts that are otherwise the same; the
/// text that has one is then the greater. Signs come before digits, digits before Latin letters, and those
/// before all else, which goes by its code.
int CompareKorean(std::string_view a, std::string_view b);

/// The LIKE of the server: "%", "_", sets in brackets, without regard to case and width.
bool LikeKorean(std::string_view text, std::string_view pattern);

} // namespace tsms
