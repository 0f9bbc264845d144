// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/clip_item.h"
#include "analysis/effect_records.h"

namespace tallyframe {

/// The record of a `generatoritem`. Throws analysis_error when it has no start or end, or one of -1 beside
/// nothing that has it.
generator_record generator_record_of(const analysis_walk& walk, const track_context& track,
                                     xml_node generatoritem);

/// The record of a video clip item whose media is a graphic, with the font and the lines of its title.
generator_record graphic_record_of(const analysis_walk& walk, const track_context& track,
                                   const clip_item& clip);

} // namespace tallyframe
