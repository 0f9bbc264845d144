// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media_facts.h"

#include <chrono>
#include <filesystem>
#include <optional>

namespace tallyframe {

/// What a media file says of itself. Nothing when it is no media file, or when it cannot be read in that
/// time. A still picture has no duration and no rate.
std::optional<media_facts> read_media_facts(const std::filesystem::path& file,
                                            std::chrono::milliseconds longest = std::chrono::seconds(10));

} // namespace tallyframe
