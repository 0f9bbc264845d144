// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tallyframe {

/// The desktop around the program.
class workspace {
public:
    virtual ~workspace() = default;

    /// Opens a folder in the desktop's file browser. A desktop without one does nothing.
    virtual void open_folder(const std::filesystem::path& folder) = 0;
};

} // namespace tallyframe
