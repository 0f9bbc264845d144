// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tallyframe {

/// A program of that name in the folders of PATH. Folders that are not given in full are left out: the
/// current folder is nobody's to trust.
std::optional<std::filesystem::path> program_on_path(const std::string& name);

struct output_limits {
    std::chrono::milliseconds time = std::chrono::seconds(5);
    std::size_t bytes = 64U << 10U;
    std::function<void()> look = [] {}; ///< called ten times a second; what it throws ends the program
};

/// What a program prints on its standard output. The arguments reach it as they are: there is no shell.
/// Nothing when it cannot be started, fails, or goes beyond the limits (it is ended then).
std::optional<std::string> output_of(const std::filesystem::path& program,
                                     const std::vector<std::string>& arguments,
                                     const output_limits& limits = {});

} // namespace tallyframe
