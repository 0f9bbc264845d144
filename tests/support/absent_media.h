// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio_tag_reader.h"
#include "platform/media_locator.h"

// Hosts whose media is not there.

namespace tallyframe::testing_support {

/// Finds nothing.
class no_media final : public media_locator {
public:
    std::optional<std::filesystem::path> locate(const std::string&) override { return std::nullopt; }
};

/// Knows no tags.
class no_audio_tags final : public audio_tag_reader {
public:
    std::optional<audio_tags> tags_of(const std::filesystem::path&) override { return std::nullopt; }
};

} // namespace tallyframe::testing_support
