// SPDX-License-Identifier: MIT
#include "cli/command_line_host.h"
#include "cli/open_window.h"
#include "cli/run.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argument_count, char** arguments)
{
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> given(arguments + 1, arguments + argument_count);
    if (tallyframe::cli::asks_for_window(given))
        return tallyframe::cli::open_window(arguments[0], given, std::cerr);
    tallyframe::cli::stop_on_signals();
    const int code = tallyframe::cli::run(given, std::cout, std::cerr);
    std::cout.flush();
    return code;
}
