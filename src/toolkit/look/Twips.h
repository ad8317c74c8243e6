#pragma once

namespace tsms {

/// Logical pixels of a length in twips, at 96 pixels to the inch.
constexpr int FromTwips(int twips)
{
    return twips / 15;
}

} // namespace tsms
