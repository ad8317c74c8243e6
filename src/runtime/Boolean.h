#pragma once

#include <cstdint>

namespace tsms {

/// The 16-bit truth value that operations answer with: -1 is true, 0 is false.
/// Callers test success by comparing with Boolean::True and nothing else.
enum class Boolean : std::int16_t { False = 0, True = -1 };

/// The truth value of a plain condition.
constexpr Boolean ToBooleanValue(bool condition)
{
    return condition ? Boolean::True : Boolean::False;
}

} // namespace tsms
