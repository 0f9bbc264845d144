// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media_facts.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace tallyframe {

/// A media file as a document describes it.
struct documented_media {
    std::string path;
    media_facts facts;
};

/// Finds the media files that a document names: media seldom lies where it lay in the cutting room.
class media_locator {
public:
    virtual ~media_locator() = default;

    /// The files that will be asked for, so that files of one name can be told apart. Asking for others stays
    /// allowed.
    virtual void expect(std::span<const documented_media>) { }

    /// The file to read for a path of the document; nothing when there is no regular file. One that may not
    /// be read is given where no other is there.
    virtual std::optional<std::filesystem::path> locate(const std::string& path) = 0;
};

} // namespace tallyframe
