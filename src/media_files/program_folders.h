// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tallyframe {

/// The folder with the program's pictures: in the shared data folder of an installed program, beside the
/// program in a build tree.
std::filesystem::path resource_folder();

/// The module that makes pictures: in the library folder of an installed program, beside the program in a
/// build tree.
std::filesystem::path pictures_module();

} // namespace tallyframe
