// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/clip_effects.h"
#include "analysis/clip_record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tallyframe {

/// Where a clip item stands: `start` and `end` in frames of the sequence, `in` and `out` the part of its
/// media that it uses, in frames at the sequence's rate before any speed change. Ends are exclusive.
struct clip_positions {
    std::int64_t start = 0;
    std::int64_t end = 0;
    std::int64_t in = 0;
    std::int64_t out = 0;
    std::int64_t start_offset = 0; ///< of a subclip in its media
    std::optional<std::int64_t> duration; ///< of all the clip; nothing outside sequences
};

/// A clip item of a video or audio track, as far as both are read alike.
struct clip_item {
    xml_node element;
    std::optional<std::string> name; ///< double quotes as "&quot;", unless figures are exact
    std::optional<std::string> file_id; ///< nothing for a clip item without a file
    clip_positions positions;
    std::string enabled; ///< "FALSE" on a disabled track
    clip_notes notes;
    std::vector<clip_effect> effects; ///< in document order
    std::vector<xml_node> markers;
};

/// Reports the progress and the diagnostics of clip item number `item_number` (from 1) of its track and reads
/// it. Groups of notes that it lacks are those of its master clip. Throws analysis_error when a position is
/// missing.
clip_item read_clip_item(analysis_walk& walk, const track_context& track, xml_node element,
                         std::size_t item_number);

} // namespace tallyframe
