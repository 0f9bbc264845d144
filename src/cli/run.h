// SPDX-License-Identifier: MIT
#pragma once

#include "cli/arguments.h"

#include <ostream>

namespace tallyframe::cli {

/// What the program's exit code says.
enum exit_code : int {
    done = 0,
    failed = 1, ///< the document or the disk
    wrong_usage = 2,
    stopped = 130, ///< by the user, with Ctrl-C
};

/// Does what the command line asks for. `out` takes the menu and the diagnostics, `err` everything else.
/// Every failure ends here, as a message on `err` and an exit code.
int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

} // namespace tallyframe::cli
