// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tallyframe {

/// Frame counts from here on have no text: no film is that long, and a double cannot tell their frames apart.
inline constexpr double frame_count_limit = 1e15;

/// Quotient rounded down and remainder of the divisor's sign, for a divisor above 0.
struct floored_division {
    std::int64_t quotient;
    std::int64_t remainder;

    floored_division(std::int64_t dividend, std::int64_t divisor)
        : quotient(dividend / divisor), remainder(dividend % divisor)
    {
        if (remainder < 0) {
            --quotient;
            remainder += divisor;
        }
    }
};

/// Appends `number` with zeros in front of it up to `width` characters; the sign stands behind those zeros.
inline void append_padded(std::string& text, std::int64_t number, std::size_t width)
{
    constexpr std::size_t usual_width = 2;
    if (width == usual_width && number >= 0 && number < 100) {
        const std::array<char, usual_width> digits = {static_cast<char>('0' + number / 10),
                                                      static_cast<char>('0' + number % 10)};
        text.append(digits.data(), digits.size());
        return;
    }
    std::array<char, 24> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    const auto length = static_cast<std::size_t>(written.ptr - digits.data());
    text.append(width - std::min(width, length), '0');
    text.append(digits.data(), length);
}

} // namespace tallyframe
