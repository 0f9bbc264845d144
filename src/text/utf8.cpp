// SPDX-License-Identifier: MIT
#include "text/utf8.h"

#include <algorithm>

namespace tallyframe {

namespace {

/// What a first byte announces: the length of its sequence, its own bits, and the least code point that needs
/// that length.
struct utf8_lead {
    std::size_t length;
    char32_t bits;
    char32_t least;
};

std::optional<utf8_lead> lead_of(unsigned char byte)
{
    if (byte < 0x80)
        return utf8_lead{1, byte, 0};
    if (byte >= 0xC0 && byte < 0xE0)
        return utf8_lead{2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0)
        return utf8_lead{3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF8)
        return utf8_lead{4, byte & 0x07U, 0x10000};
    return std::nullopt;
}

bool is_scalar(char32_t code_point)
{
    return code_point <= 0x10FFFF && (code_point < 0xD800 || code_point > 0xDFFF);
}

std::optional<char32_t> decoded(std::string_view sequence, const utf8_lead& lead)
{
    if (sequence.size() < lead.length)
        return std::nullopt;
    char32_t code_point = lead.bits;
    for (const char next : sequence.substr(1)) {
        if (!continues_character(next))
            return std::nullopt;
        code_point = (code_point << 6U) | (static_cast<unsigned char>(next) & 0x3FU);
    }
    return code_point >= lead.least && is_scalar(code_point) ? std::optional(code_point) : std::nullopt;
}

} // namespace

utf8_character first_character(std::string_view text)
{
    if (const auto lead = lead_of(static_cast<unsigned char>(text.front()))) {
        const std::string_view sequence = text.substr(0, lead->length);
        if (const auto code_point = decoded(sequence, *lead))
            return {sequence, code_point};
    }
    return {text.substr(0, 1), std::nullopt};
}

std::size_t declared_length(std::string_view text)
{
    const auto lead = lead_of(static_cast<unsigned char>(text.front()));
    return std::min(lead ? lead->length : 1, text.size());
}

bool is_utf8(std::string_view text)
{
    while (!text.empty()) {
        const auto [bytes, code_point] = first_character(text);
        if (!code_point)
            return false;
        text.remove_prefix(bytes.size());
    }
    return true;
}

} // namespace tallyframe
