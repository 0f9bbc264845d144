// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tallyframe::cli {

/// Where the workbook of a single entry goes: `output` as it is, or inside it when it is a folder; without it
/// the document's name with ".xls" in the current folder.
std::filesystem::path report_path(const std::filesystem::path& document,
                                  const std::optional<std::filesystem::path>& output);

/// Gives each entry of a document its own workbook: "NAME - TITLE.xls" beside where the single one would go.
class report_paths {
public:
    report_paths(const std::filesystem::path& document, const std::optional<std::filesystem::path>& output)
        : single_(report_path(document, output))
    {
    }

    /// A path that none of the earlier calls gave, letter case ignored: of two entries with one title the
    /// second gets a number.
    std::filesystem::path next(std::string_view title);

private:
    std::filesystem::path single_;
    std::unordered_set<std::string> taken_;
};

} // namespace tallyframe::cli
