// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/pictures/media_reader.h"
#include "platform/thumbnailer.h"

#include <optional>

namespace tallyframe {

/// The picture of a clip's in-point: the frame on display at `time`, `width` pixels wide; where none is, the
/// film's first; of a still, whatever the time, the still within that width. Nothing when the file gives
/// none.
std::optional<jpeg_picture> clip_picture(media_reader& reader, const media_file& file, media_time time,
                                         int width);

} // namespace tallyframe
