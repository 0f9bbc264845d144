// SPDX-License-Identifier: MIT
#include "text/ascii_text.h"

#include "text/icu_text.h"

#include <algorithm>

namespace tallyframe {

namespace {

bool is_ascii(char character)
{
    return static_cast<unsigned char>(character) < 0x80;
}

} // namespace

std::string to_ascii(std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), is_ascii))
        return std::string(text);

    const icu::UnicodeString units = decomposed(text);
    std::string ascii;
    for (int32_t i = 0; i < units.length(); ++i) {
        if (units[i] < 0x80)
            ascii += static_cast<char>(units[i]);
    }
    return ascii;
}

} // namespace tallyframe
