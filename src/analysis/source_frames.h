// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/clip_item.h"
#include "analysis/clip_record.h"
#include "media/media_files.h"

#include <optional>

namespace tallyframe {

/// The part of its media that a clip shows, in frames of the media's own timecode at the media's rate.
struct source_frames {
    std::optional<double> first; ///< nothing when a hostile speed or rate leaves no finite number
    std::optional<double> last; ///< inclusive
    std::optional<used_frames> media_frames; ///< the same from the media's first frame on
    double speed = 100; ///< percent, always positive
    bool is_reversed = false;
};

/// The positions of a clip of a bin count at the media's rate already, others at that of the sequence.
source_frames source_frames_of(const analysis_walk& walk, const clip_item& clip, const file_record& file);

/// The first source frame in seconds from the start of the media. Nothing without a usable rate, or when the
/// fraction does not fit.
std::optional<rational> image_time_of(const source_frames& source, const file_record& file);

} // namespace tallyframe
