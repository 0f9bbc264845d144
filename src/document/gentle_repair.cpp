// SPDX-License-Identifier: MIT
#include "document/gentle_repair.h"

#include "text/letter_case.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tallyframe {

namespace {

constexpr std::size_t characters_between_looks = 100'000; ///< at whether the run is still wanted

/// The letters of Windows-1252 from 80 to 9F; 0 where it has none. From A0 on they are those of Unicode.
constexpr std::array<std::uint16_t, 32> windows_1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// 0 for a byte that Windows-1252 has no letter for.
std::uint32_t letter_of(unsigned char byte)
{
    constexpr unsigned char first = 0x80;
    const std::size_t place = byte - first;
    return place < windows_1252.size() ? windows_1252[place] : byte;
}

/// Letters of Windows-1252 take two or three bytes.
void append_utf8(std::string& text, std::uint32_t letter)
{
    if (letter < 0x800) {
        text += static_cast<char>(0xC0U | letter >> 6U);
    } else {
        text += static_cast<char>(0xE0U | letter >> 12U);
        text += static_cast<char>(0x80U | (letter >> 6U & 0x3FU));
    }
    text += static_cast<char>(0x80U | (letter & 0x3FU));
}

/// Visits the characters and bad bytes of a text one after the other.
template <class Visitor>
void for_each_character(std::string_view text, progress& display, const Visitor& visit)
{
    for (std::size_t looked_at = 0; !text.empty(); ++looked_at) {
        if (looked_at % characters_between_looks == 0)
            display.leave_if_cancelled();
        const utf8_character character = first_character(text);
        visit(character);
        text.remove_prefix(character.bytes.size());
    }
}

bool has_utf8_letters(std::string_view text, progress& display)
{
    bool has_some = false;
    for_each_character(text, display, [&](const utf8_character& character) {
        has_some = has_some || (character.code_point && !is_ascii(character.bytes.front()));
    });
    return has_some;
}

} // namespace

gently_mended_text gently_mended(std::string_view text, progress& display)
{
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (text.starts_with(byte_order_mark))
        text.remove_prefix(byte_order_mark.size());
    const bool is_windows_1252 = !has_utf8_letters(text, display);
    gently_mended_text mended;
    mended.text.reserve(text.size());
    std::size_t line = 1;
    std::size_t dropped_here = 0;
    const auto end_line = [&] {
        if (dropped_here != 0)
            mended.dropped.add(line, dropped_here);
        dropped_here = 0;
        ++line;
    };
    for_each_character(text, display, [&](const utf8_character& character) {
        const auto byte = static_cast<unsigned char>(character.bytes.front());
        const std::uint32_t letter =
            is_windows_1252 && !character.code_point && byte >= 0x80 ? letter_of(byte) : 0;
        if (is_clean_character(character.bytes)) {
            mended.text += character.bytes;
            if (byte == '\n')
                end_line();
        } else if (letter != 0) {
            append_utf8(mended.text, letter);
            ++mended.reread;
        } else {
            ++dropped_here;
        }
    });
    end_line();
    return mended;
}

bool may_be_utf8(std::string_view text)
{
    if (text.starts_with("\xFE\xFF") || text.starts_with("\xFF\xFE"))
        return false;
    const std::size_t end = text.starts_with("<?xml") ? text.find("?>") : 0;
    const std::string_view declaration = text.substr(0, std::min(end, std::size_t{200}));
    const std::size_t encoding = declaration.find("encoding");
    return encoding == std::string_view::npos
        || upper_cased(declaration.substr(encoding)).find("UTF-8") != std::string::npos;
}

} // namespace tallyframe
