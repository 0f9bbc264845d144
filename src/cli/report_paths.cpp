// SPDX-License-Identifier: MIT
#include "cli/report_paths.h"

#include "sequence_to_spreadsheet/file_name_part.h"

#include <fmt/format.h>
#include <unicode/unistr.h>

namespace tallyframe::cli {

namespace {

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
    std::filesystem::path own_name = document.stem().string() + ".xls";
    if (!output)
        return own_name;
    if (std::filesystem::is_directory(*output))
        return *output / own_name;
    return *output;
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
