// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tallyframe {

/// Tells a file of another kind by how it begins, for those who have taken the wrong one: "This is an FCPXML
/// document (Final Cut Pro X). Tallyframe reads …". Nothing for xmeml and for what it does not know.
std::optional<std::string> other_format(std::string_view beginning);

/// The same of a file, whose first 4 KB are read; nothing for one that cannot be read.
std::optional<std::string> other_format_of(const std::filesystem::path& path);

} // namespace tallyframe
