// SPDX-License-Identifier: MIT
#include "text/visible_text.h"

#include "text/shortened.h"
#include "text/utf8.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

#include <cstdint>

namespace tallyframe {

namespace {

/// Controls, format characters (directions, joiners, tags) and the two separators that end a line.
bool is_invisible(char32_t character)
{
    constexpr std::uint32_t kinds = U_GC_CC_MASK | U_GC_CF_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
    return (U_MASK(u_charType(static_cast<UChar32>(character))) & kinds) != 0;
}

} // namespace

std::string visible_text(std::string_view text)
{
    std::string visible;
    visible.reserve(text.size());
    while (!text.empty()) {
        const auto [bytes, code_point] = first_character(text);
        if (!code_point)
            visible += fmt::format("<{:02X}>", static_cast<unsigned char>(bytes.front()));
        else if (is_invisible(*code_point))
            visible += fmt::format("<U+{:04X}>", static_cast<std::uint32_t>(*code_point));
        else
            visible += bytes;
        text.remove_prefix(bytes.size());
    }
    return visible;
}

std::string visible_name(std::string_view name)
{
    return '"' + visible_text(name) + '"';
}

std::string in_quotes(std::string_view name)
{
    constexpr std::size_t longest = 100;
    return visible_name(shortened(name, longest));
}

} // namespace tallyframe
