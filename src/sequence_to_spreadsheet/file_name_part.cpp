// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/file_name_part.h"

#include "media_files/thumbnail_folder.h"
#include "text/icu_text.h"

#include <unicode/utf8.h>

#include <algorithm>

namespace tallyframe {

namespace {

constexpr std::string_view forbidden_characters = "/\\:*?\"<>|";
constexpr int longest_part = 100; ///< characters
constexpr std::size_t least_for_title = 100; ///< bytes that even a long document name leaves to the title

std::size_t less(std::size_t bytes, std::size_t taken)
{
    return bytes - std::min(bytes, taken);
}

} // namespace

std::string file_name_part(std::string_view title, std::size_t most_bytes)
{
    const icu::UnicodeString characters = icu_text(title);
    icu::UnicodeString kept;
    std::size_t bytes = 0;
    for (int32_t i = 0; i < characters.length() && kept.countChar32() < longest_part;
         i = characters.moveIndex32(i, 1)) {
        const UChar32 character = characters.char32At(i);
        bytes += U8_LENGTH(character);
        if (bytes > most_bytes)
            break;
        const bool is_forbidden = character < 0x20 || character == 0x7f
            || (character < 0x80
                && forbidden_characters.find(static_cast<char>(character)) != std::string_view::npos);
        kept.append(is_forbidden ? UChar32{'-'} : character);
    }
    finished(kept.trim());
    while (kept.endsWith(u".") || kept.endsWith(u" "))
        kept.truncate(kept.length() - 1);
    std::string part;
    kept.toUTF8String(part);
    return part.empty() ? "Untitled" : part;
}

std::string entry_file_name(std::string_view document_name, std::string_view title, std::string_view ending,
                            std::string_view extension)
{
    constexpr std::string_view separator = " - ";
    const std::size_t taken =
        separator.size() + ending.size() + std::max(extension.size(), thumbnails_ending.size());
    const std::size_t room = less(longest_file_name, taken);
    const std::string title_part =
        file_name_part(title, std::max(less(room, document_name.size()), std::min(room, least_for_title)));
    std::string name(document_name);
    if (name.size() + title_part.size() > room)
        name = file_name_part(name, less(room, title_part.size()));
    name.append(separator).append(title_part).append(ending);
    return name;
}

} // namespace tallyframe
