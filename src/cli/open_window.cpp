// SPDX-License-Identifier: MIT
#include "cli/open_window.h"

#include "cli/arguments.h"
#include "cli/run.h"
#include "platform/sibling_program.h"

#include <filesystem>

namespace tallyframe::cli {

namespace {

#ifdef __APPLE__
constexpr const char* window_program = "Tallyframe.app/Contents/MacOS/Tallyframe";
#else
constexpr const char* window_program = "tallyframe-window";
#endif

} // namespace

bool asks_for_window(const std::vector<std::string>& arguments)
{
    std::error_code unreadable;
    return arguments.empty()
        || (arguments.size() == 1 && std::filesystem::is_regular_file(arguments.front(), unreadable));
}

int open_window(const std::string& own_path, const std::vector<std::string>& arguments, std::ostream& err)
{
    become_sibling_program(own_path, window_program, arguments);
    err << "tallyframe: the window is not installed here; this is the command line.\n\n"
        << parse_arguments({"--help"}).text;
    return wrong_usage;
}

} // namespace tallyframe::cli
