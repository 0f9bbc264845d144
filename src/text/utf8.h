// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tallyframe {

/// The front of a text: one character, or a byte that begins none.
struct utf8_character {
    std::string_view bytes; ///< never empty
    std::optional<char32_t> code_point; ///< nothing for a byte that begins no UTF-8 sequence (RFC 3629)
};

/// `text` is not empty. Surrogates, overlong forms and what lies above U+10FFFF are no characters.
utf8_character first_character(std::string_view text);

/// How many bytes at the front of `text`, which is not empty, count as one character: as many as its first
/// byte declares, as far as the text goes.
std::size_t declared_length(std::string_view text);

/// Whether the whole text is UTF-8.
bool is_utf8(std::string_view text);

/// Whether a byte is a character of its own: one of ASCII.
constexpr bool is_ascii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Whether a byte goes on with the character of the byte before it.
constexpr bool continues_character(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Length of a text in characters (Unicode code points).
constexpr std::size_t text_length(std::string_view text)
{
    std::size_t length = 0;
    for (const char byte : text)
        length += continues_character(byte) ? 0U : 1U;
    return length;
}

} // namespace tallyframe
