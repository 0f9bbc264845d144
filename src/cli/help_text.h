// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tallyframe::cli {

/// Gives the help of a program, and of the commands that are added to it later, its form: each flag beside
/// what it does, in lines of at most 80 characters.
void set_help_form(CLI::App& app);

/// The help of a program or of one of its commands.
std::string help_text(const CLI::App& app);

} // namespace tallyframe::cli
