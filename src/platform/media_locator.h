// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tallyframe {

/// Finds the media files that a document names: media seldom lies where it lay in the cutting room.
class media_locator {
public:
    virtual ~media_locator() = default;

    /// The file to read for a path of the document; nothing when there is no regular file that can be read.
    virtual std::optional<std::filesystem::path> locate(const std::string& path) = 0;
};

} // namespace tallyframe
