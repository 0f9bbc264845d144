// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/clip_item.h"
#include "analysis/effect_records.h"

#include <vector>

namespace tallyframe {

/// Appends a record for each filter of the clip that is switched on.
void add_filters(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                 std::vector<filter_record>& records);

/// Appends a record for each motion setting of the clip that differs from its neutral value; values are
/// compared as text ("0.0" is not "0"). `speed` in percent, negative for a reversed clip.
///
/// The values of a keyframed scale are joined ("50%, 75%, 100") in the additions. Throws
/// analysis_error when the parameter has no place for them.
void add_motion(const analysis_walk& walk, const track_context& track, const clip_item& clip, double speed,
                std::vector<motion_record>& records);

} // namespace tallyframe
