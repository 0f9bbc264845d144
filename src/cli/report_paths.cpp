// SPDX-License-Identifier: MIT
#include "cli/report_paths.h"

#include "sequence_to_spreadsheet/file_name_part.h"
#include "text/letter_case.h"

#include <fmt/format.h>

#include <system_error>

namespace tallyframe::cli {

std::filesystem::path report_path(const std::filesystem::path& document,
                                  const std::optional<std::filesystem::path>& output)
{
    std::filesystem::path own_name = document.stem().string() + ".xls";
    if (!output)
        return own_name;
    std::error_code unreadable;
    if (std::filesystem::is_directory(*output, unreadable))
        return *output / own_name;
    return *output;
}

std::filesystem::path report_paths::next(std::string_view title)
{
    const std::string document_name = single_.stem().string();
    const std::string extension = single_.extension().string();
    std::string name = entry_file_name(document_name, title, {}, extension);
    for (int number = 2; !taken_.insert(case_folded(name)).second; ++number)
        name = entry_file_name(document_name, title, fmt::format(" {}", number), extension);
    return single_.parent_path() / (name + extension);
}

} // namespace tallyframe::cli
