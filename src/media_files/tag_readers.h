// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "platform/audio_tag_reader.h"

#include <functional>
#include <optional>

namespace tallyframe {

/// The tags in the file itself: ID3, APE, Vorbis comments, atoms of MP4 and QuickTime, the chunks of WAV,
/// W64, AIFF and CAF, Matroska's. Where a file has several kinds, one fills up what the other lacks. Nothing
/// when it is no file that has such. Throws std::bad_alloc. `advance`: called whenever the file is read.
std::optional<audio_tags> tags_in_file(
    const media_file& file, const std::function<void()>& advance = [] {});

} // namespace tallyframe
