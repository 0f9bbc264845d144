// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/file_name_part.h"

#include <unicode/unistr.h>

namespace tallyframe {

namespace {

constexpr std::string_view forbidden_characters = "/\\:*?\"<>|";
constexpr int longest_part = 100;

} // namespace

std::string file_name_part(std::string_view title)
{
    icu::UnicodeString characters =
        icu::UnicodeString::fromUTF8({title.data(), static_cast<int32_t>(title.size())});
    icu::UnicodeString kept;
    for (int32_t i = 0; i < characters.length() && kept.countChar32() < longest_part;
         i = characters.moveIndex32(i, 1)) {
        const UChar32 character = characters.char32At(i);
        const bool is_forbidden = character < 0x20 || character == 0x7f
            || (character < 0x80
                && forbidden_characters.find(static_cast<char>(character)) != std::string_view::npos);
        kept.append(is_forbidden ? UChar32{'-'} : character);
    }
    kept.trim();
    while (kept.endsWith(u".") || kept.endsWith(u" "))
        kept.truncate(kept.length() - 1);
    std::string part;
    kept.toUTF8String(part);
    return part.empty() ? "Untitled" : part;
}

} // namespace tallyframe
