// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tallyframe {

/// The folder with the program's pictures: in the shared data folder of an installed program, beside the
/// program in a build tree.
std::filesystem::path resource_folder();

/// The program that reads media files: in the folder for programs that nobody starts by hand of an installed
/// program, beside the program in a build tree.
std::filesystem::path media_program();

} // namespace tallyframe
