// SPDX-License-Identifier: MIT
#include "cli/command_line_host.h"
#include "cli/run.h"

#include <iostream>

int main(int argument_count, char** arguments)
{
    std::ios::sync_with_stdio(false);
    tallyframe::cli::stop_on_signals();
    const int code = tallyframe::cli::run({arguments + 1, arguments + argument_count}, std::cout, std::cerr);
    std::cout.flush();
    return code;
}
