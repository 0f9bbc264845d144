// SPDX-License-Identifier: MIT
#include "platform/sibling_program.h"

#include <unistd.h>

#include <filesystem>

namespace tallyframe {

namespace {

/// The folder of this program; empty when it cannot be told: the search path then decides.
std::filesystem::path own_folder(const std::string& own_path)
{
    std::error_code unknown;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", unknown);
    if (!unknown)
        return self.parent_path();
    return std::filesystem::path(own_path).parent_path();
}

} // namespace

void become_sibling_program(const std::string& own_path, const std::string& name,
                            std::vector<std::string> arguments)
{
    const std::string program = (own_folder(own_path) / name).string();
    arguments.insert(arguments.begin(), program);
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    execvp(program.c_str(), argv.data());
}

} // namespace tallyframe
