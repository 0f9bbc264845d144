// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/clip_item.h"
#include "analysis/effect_records.h"
#include "analysis/source_frames.h"

#include <optional>
#include <vector>

namespace tallyframe {

/// The media that a clip's markers lie in.
struct marked_media {
    source_frames shown;
    media_clock clock;
};

/// Nothing for a still, which has no source time.
std::optional<marked_media> marked_media_of(const source_frames& shown, const file_record& file);

/// Appends the markers in the part of its media that the clip shows. `speed` in percent, negative for a
/// reversed video clip. `media`: nothing leaves exact figures without source times.
void add_clip_markers(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                      double speed, const std::optional<marked_media>& media,
                      std::vector<clip_marker_record>& records);

/// Removes records that are equal in every field to an earlier one.
void remove_duplicates(std::vector<clip_marker_record>& records);

} // namespace tallyframe
