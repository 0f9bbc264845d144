// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tallyframe {

/// Lets another program of ours, which lies beside this one, take this process over. Returns only when it
/// could not be started.
///
/// `own_path`: argv[0] of this process, where the system cannot tell which file it runs.
void become_sibling_program(const std::string& own_path, const std::string& name,
                            std::vector<std::string> arguments);

} // namespace tallyframe
