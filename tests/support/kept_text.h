// SPDX-License-Identifier: MIT
#pragma once

#include "platform/diagnostics.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace tallyframe::testing_support {

/// Diagnostics that stay for a test to read.
class kept_text final : public diagnostics {
public:
    void write(std::string_view text) override { text_ += text; }
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

/// Writes a file, and the folders that it needs.
inline std::filesystem::path write_file(const std::filesystem::path& file, std::string_view content = "x")
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return file;
}

} // namespace tallyframe::testing_support
