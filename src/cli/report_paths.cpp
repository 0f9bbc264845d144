// SPDX-License-Identifier: MIT
#include "cli/report_paths.h"

#include <fmt/format.h>
#include <unicode/unistr.h>

namespace tallyframe::cli {

namespace {

constexpr std::string_view forbidden_characters = "/\\:*?\"<>|";
constexpr int longest_part = 100;

std::string folded(const std::string& name)
{
    std::string lower_case;
    icu::UnicodeString::fromUTF8(name).foldCase().toUTF8String(lower_case);
    return lower_case;
}

} // namespace

std::filesystem::path report_path(const std::filesystem::path& document,
                                  const std::optional<std::filesystem::path>& output)
{
    const std::filesystem::path own_name = document.stem().string() + ".xls";
    if (!output)
        return own_name;
    if (std::filesystem::is_directory(*output))
        return *output / own_name;
    return *output;
}

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

std::filesystem::path report_paths::next(std::string_view title)
{
    const std::string base = fmt::format("{} - {}", single_.stem().string(), file_name_part(title));
    std::string name = base;
    for (int number = 2; !taken_.insert(folded(name)).second; ++number)
        name = fmt::format("{} {}", base, number);
    return single_.parent_path() / (name + single_.extension().string());
}

} // namespace tallyframe::cli
