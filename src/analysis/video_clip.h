// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"

#include <cstddef>

namespace tallyframe {

/// Analyses a clip item of a video track, number `item_number` (from 1) of it: adds the clip's record, or
/// that of the generated item that it holds, and those of its filters, motion and markers.
void analyze_video_clip(analysis_walk& walk, const track_context& track, xml_node element,
                        std::size_t item_number);

} // namespace tallyframe
