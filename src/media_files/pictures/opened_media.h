// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "media_files/pictures/ffmpeg_handles.h"
#include "media_files/pictures/media_input.h"
#include "media_files/pictures/time_limit.h"

#include <memory>

namespace tallyframe {

/// A media file as FFmpeg reads it. No file has a null format.
struct opened_media {
    std::unique_ptr<media_input> input; ///< what the format reads through, so it has to go last
    format_context_ptr format;
};

/// Opens a file that is of one of these formats (FFmpeg's names, with commas between them). What it names
/// besides itself stays closed. Reading ends when `limit` is over, which must outlive what is opened.
opened_media open_media_as(const char* formats, const media_file& file, const time_limit& limit);

} // namespace tallyframe
