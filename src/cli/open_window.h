// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tallyframe::cli {

/// Whether the window is meant: there are no arguments, or there is one and it is a file.
bool asks_for_window(const std::vector<std::string>& arguments);

/// Lets the window's program take this process over. When it is not there: a sentence about that and the
/// help on `err`, and the exit code.
int open_window(const std::string& own_path, const std::vector<std::string>& arguments, std::ostream& err);

} // namespace tallyframe::cli
