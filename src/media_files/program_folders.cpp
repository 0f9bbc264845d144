// SPDX-License-Identifier: MIT
#include "media_files/program_folders.h"

#include <system_error>

namespace tallyframe {

namespace {

std::filesystem::path program_folder()
{
    std::error_code unseen;
    return std::filesystem::read_symlink("/proc/self/exe", unseen).parent_path();
}

/// The first when it is there, otherwise the second.
std::filesystem::path installed_or_built(const std::filesystem::path& installed,
                                         const std::filesystem::path& built)
{
    std::error_code unseen;
    return std::filesystem::exists(installed, unseen) ? installed.lexically_normal() : built;
}

} // namespace

std::filesystem::path resource_folder()
{
    const std::filesystem::path program = program_folder();
    return installed_or_built(program / TALLYFRAME_DATA_FROM_PROGRAM, program / "resources");
}

std::filesystem::path media_program()
{
    constexpr const char* name = "tallyframe-media";
    const std::filesystem::path program = program_folder();
    return installed_or_built(program / TALLYFRAME_PROGRAMS_FROM_PROGRAM / name, program / name);
}

} // namespace tallyframe
