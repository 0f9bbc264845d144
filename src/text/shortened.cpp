// SPDX-License-Identifier: MIT
#include "text/shortened.h"

#include "text/utf8.h"

namespace tallyframe {

std::string_view front_in_bytes(std::string_view text, std::size_t bytes)
{
    if (text.size() <= bytes)
        return text;
    std::size_t end = bytes;
    while (end > 0 && continues_character(text[end]))
        --end;
    return text.substr(0, end);
}

std::string_view front_in_utf16_units(std::string_view text, std::size_t units)
{
    std::size_t taken = 0;
    for (std::size_t end = 0; end < text.size(); ++end) {
        if (continues_character(text[end]))
            continue;
        taken += static_cast<unsigned char>(text[end]) >= 0xF0 ? 2 : 1; // beyond the first 65,536 characters
        if (taken > units)
            return text.substr(0, end);
    }
    return text;
}

std::string shortened(std::string_view text, std::size_t bytes)
{
    if (text.size() <= bytes)
        return std::string(text);
    return std::string(front_in_bytes(text, bytes)) + "…";
}

} // namespace tallyframe
