// SPDX-License-Identifier: MIT
#include "text/trimmed.h"

#include <algorithm>

namespace tallyframe {

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view trimmed_away(" \t\n\v\f\r\0", 7);
    const std::size_t begin = text.find_first_not_of(trimmed_away);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(trimmed_away) + 1 - begin);
}

std::string_view without_leading_blanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    return text;
}

} // namespace tallyframe
