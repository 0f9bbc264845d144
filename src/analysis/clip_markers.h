// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/clip_item.h"
#include "analysis/effect_records.h"

#include <vector>

namespace tallyframe {

/// Appends the markers in the part of its media that the clip shows. `speed` in percent, negative for a
/// reversed video clip.
void add_clip_markers(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                      double speed, std::vector<clip_marker_record>& records);

/// Removes records that are equal in every field to an earlier one.
void remove_duplicates(std::vector<clip_marker_record>& records);

} // namespace tallyframe
