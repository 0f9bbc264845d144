// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/clip_item.h"
#include "analysis/clip_record.h"
#include "media/media_files.h"

#include <cstdint>
#include <optional>

namespace tallyframe {

/// The part of its media that a clip shows, in frames of the media's own timecode at the media's rate.
struct source_frames {
    std::optional<double> first; ///< nothing when a hostile speed or rate leaves no finite number
    std::optional<double> last; ///< inclusive
    std::optional<used_frames> media_frames; ///< the same from the media's first frame on
    double speed = 100; ///< percent, always positive
    bool is_reversed = false;

    double origin = 0; ///< the media's frame at which it begins to run
    double subclip_start = 0; ///< frames of the media that lie before the subclip
    double clip_rate = 1; ///< of the clip's own numbers: x of them last
    double media_rate = 1; ///< x / clip_rate * media_rate frames of the media
};

/// The positions of a clip of a bin count at the media's rate already, others at that of the sequence.
source_frames source_frames_of(const analysis_walk& walk, const clip_item& clip, const file_record& file);

/// The frame of the media at a point of it that the clip names in its own numbers, such as a marker's.
/// Nothing where that is no finite number.
std::optional<double> source_frame_at(const source_frames& source, std::int64_t point);

/// The first source frame in seconds from the start of the media. Nothing without a usable rate, or when the
/// fraction does not fit.
std::optional<rational> image_time_of(const source_frames& source, const file_record& file);

} // namespace tallyframe
