// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/effect_records.h"

namespace tallyframe {

/// The record of a `transitionitem`. Throws analysis_error when it has no start or end.
transition_record transition_record_of(const analysis_walk& walk, const track_context& track,
                                       xml_node transitionitem);

} // namespace tallyframe
