// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "media_files/pictures/time_limit.h"
#include "platform/media_facts.h"

#include <chrono>
#include <optional>

namespace tallyframe {

/// What a media file says of itself. Nothing when it is no media file, or when it cannot be read within
/// `limit`. A still picture has no duration and no rate.
std::optional<media_facts> read_media_facts(const media_file& file,
                                            time_limit limit = time_limit(std::chrono::seconds(10)));

} // namespace tallyframe
