// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"

#include <vector>

namespace tallyframe {

bool is_audio(const track_position& place);

/// Whether a clip shares the row of the clip before it on the clips sheet: both audio, with the same place on
/// the timeline and the same media path. So the channels of a stereo pair make one row.
bool shares_row_on_clips_sheet(const clip_record& previous, const clip_record& clip);

/// Whether two clips that follow each other are one use of a reel: same place on the timeline, same name. So
/// a video clip and its audio count once.
bool is_same_use_of_reel(const clip_record& previous, const clip_record& clip);

/// Whether a clip shares the row of the clip before it on a reel sheet: one use of the reel, and both audio
/// or both not. Unlike the clips sheet this asks for the name, not the path, and merges video clips too.
bool shares_row_on_reel_sheet(const clip_record& previous, const clip_record& clip);

/// The clips that get a row of their own on the clips sheet.
std::vector<const clip_record*> rows_of_clips_sheet(const std::vector<const clip_record*>& clip_data_array);

} // namespace tallyframe
