// SPDX-License-Identifier: MIT
#include "workbook/records/unicode.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace xls {

namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr std::uint8_t byte_at(std::string_view text, std::size_t position)
{
    return static_cast<std::uint8_t>(text[position]);
}

struct lead_byte {
    std::size_t length = 1; ///< bytes of the sequence; 1 for a byte that starts none
    std::uint8_t low = 0x80; ///< range of the second byte, which rules out long forms, surrogates
    std::uint8_t high = 0xBF; ///< and numbers over U+10FFFF (The Unicode Standard, table 3-7)
};

constexpr lead_byte sequence_of(std::uint8_t lead)
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return {2};
    if (lead >= 0xE0 && lead <= 0xEF)
        return {3, static_cast<std::uint8_t>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<std::uint8_t>(lead == 0xED ? 0x9F : 0xBF)};
    if (lead >= 0xF0 && lead <= 0xF4)
        return {4, static_cast<std::uint8_t>(lead == 0xF0 ? 0x90 : 0x80),
                static_cast<std::uint8_t>(lead == 0xF4 ? 0x8F : 0xBF)};
    return {};
}

/// Reads the character at `position` and moves behind it.
char32_t next_character(std::string_view text, std::size_t& position)
{
    const auto lead = byte_at(text, position++);
    if (lead < 0x80)
        return lead;
    auto [length, low, high] = sequence_of(lead);
    if (length == 1)
        return replacement;
    char32_t character = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (position == text.size() || byte_at(text, position) < low || byte_at(text, position) > high)
            return replacement;
        character = character << 6 | (byte_at(text, position++) & 0x3FU);
        low = 0x80;
        high = 0xBF;
    }
    return character;
}

} // namespace

bool is_ascii(std::string_view text)
{
    constexpr std::uint64_t high_bits = 0x8080808080808080;
    std::uint64_t seen = 0;
    std::size_t i = 0;
    for (; i + sizeof(seen) <= text.size(); i += sizeof(seen)) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + i, sizeof(word));
        seen |= word;
    }
    for (; i < text.size(); ++i)
        seen |= byte_at(text, i);
    return (seen & high_bits) == 0;
}

std::u16string to_utf16(std::string_view utf8)
{
    std::u16string text;
    text.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        const auto character = next_character(utf8, position);
        if (character < 0x10000) {
            text += static_cast<char16_t>(character);
        } else {
            text += static_cast<char16_t>(0xD7C0 + (character >> 10));
            text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
    }
    return text;
}

bounded_text valid_utf8(std::string_view text, std::size_t limit)
{
    bounded_text result;
    result.utf8.reserve(std::min(text.size(), 3 * limit));
    std::size_t units = 0;
    for (std::size_t position = 0; position < text.size();) {
        const auto start = position;
        const auto character = next_character(text, position);
        units += character < 0x10000 ? 1 : 2;
        if (units > limit) {
            result.cut = true;
            break;
        }
        if (character == replacement)
            result.utf8 += "\xEF\xBF\xBD";
        else
            result.utf8.append(text, start, position - start);
    }
    return result;
}

bool fits_in_bytes(std::u16string_view text)
{
    return std::ranges::all_of(text, [](char16_t unit) { return unit < 0x100; });
}

} // namespace xls
