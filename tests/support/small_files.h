// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace tallyframe::testing_support {

/// Writes a file, and the folders that it needs.
inline std::filesystem::path write_file(const std::filesystem::path& file, std::string_view content = "x")
{
    if (file.has_parent_path())
        std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return file;
}

/// All bytes of a file; none when it cannot be read.
inline std::string content_of(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace tallyframe::testing_support
