// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace xls {

bool is_ascii(std::string_view text);

/// The text as UTF-16. Bytes that are not UTF-8 become U+FFFD, one for each maximal broken part.
std::u16string to_utf16(std::string_view utf8);

/// The text as valid UTF-8, broken bytes repaired as in to_utf16, and no longer than `limit` UTF-16 units;
/// a surrogate pair that would cross the limit is left out whole.
struct bounded_text {
    std::string utf8;
    bool cut = false;
};
bounded_text valid_utf8(std::string_view text, std::size_t limit);

/// Whether each unit fits in a byte, so that the text can be stored with 8 bits a character.
bool fits_in_bytes(std::u16string_view text);

constexpr bool is_high_surrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

} // namespace xls
