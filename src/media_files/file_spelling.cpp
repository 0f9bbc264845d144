// SPDX-License-Identifier: MIT
#include "media_files/file_spelling.h"

#include "text/icu_text.h"
#include "text/letter_case.h"
#include "text/utf8.h"

#include <algorithm>

namespace tallyframe {

namespace {

bool is_all_ascii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), is_ascii);
}

char lower_cased(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool begins_with_a_drive(std::string_view path)
{
    if (path.size() < 2 || path[1] != ':')
        return false;
    const char letter = lower_cased(path[0]);
    return letter >= 'a' && letter <= 'z' && (path.size() == 2 || path[2] == '/' || path[2] == '\\');
}

} // namespace

std::string one_spelling(std::string_view name)
{
    if (is_all_ascii(name) || !is_utf8(name))
        return std::string(name);
    std::string spelling;
    composed(name).toUTF8String(spelling);
    return spelling;
}

std::string caseless_spelling(std::string_view name)
{
    if (!is_all_ascii(name))
        return is_utf8(name) ? one_spelling(case_folded(one_spelling(name))) : std::string(name);
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(), lower_cased);
    return lower;
}

std::string with_slashes(std::string_view path)
{
    const bool has_drive = begins_with_a_drive(path);
    std::string text(path);
    if (has_drive || path.starts_with("\\\\"))
        std::replace(text.begin(), text.end(), '\\', '/');
    return has_drive ? "/" + text : text;
}

} // namespace tallyframe
