// SPDX-License-Identifier: MIT
#pragma once

#include "run/progress.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// Finds paths on the disk whose names may be spelled differently there: other accents, other letter case.
/// Each folder on the way is read once. `display` may stop that.
class spelled_paths {
public:
    explicit spelled_paths(progress& display) : display_(display) { }

    /// The first that `is_wanted` of the path as it is, of paths whose last name differs in accents alone,
    /// and of those in which it differs in letter case too; folders likewise.
    std::optional<std::filesystem::path>
    find(const std::string& path, const std::function<bool(const std::filesystem::path&)>& is_wanted);

private:
    using folders = std::vector<std::filesystem::path>;
    using names_by_caseless_spelling = std::unordered_map<std::string, std::vector<std::string>>;

    const folders& folders_like(const std::string& folder);
    std::vector<std::string> names_like(const std::string& name, const std::filesystem::path& folder);
    const names_by_caseless_spelling& names_in(const std::filesystem::path& folder);

    progress& display_;
    std::map<std::string, folders, std::less<>> folders_like_;
    std::unordered_map<std::string, names_by_caseless_spelling> names_in_;
};

} // namespace tallyframe
