// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_walk.h"
#include "analysis/clip_item.h"
#include "analysis/clip_record.h"
#include "analysis/effect_records.h"
#include "analysis/source_frames.h"
#include "media/media_files.h"

#include <string_view>
#include <vector>

namespace tallyframe {

/// The media file of a clip item when its media is to be listed: it is known and the clip lasts. Otherwise
/// none, and why is noted in the result's losses.
const file_record* listed_file_of(const analysis_walk& walk, const track_context& track,
                                  const clip_item& clip);

/// The record of a clip, without what only video or only audio clips have.
clip_record clip_record_of(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                           const file_record& file, const source_frames& source);

/// The record of a clip item whose media is generated ("Slug"); no font, no text.
generator_record generated_clip_record_of(const analysis_walk& walk, const track_context& track,
                                          const clip_item& clip, std::string_view type);

inline constexpr std::string_view slug_path = "Slug";
inline constexpr std::string_view bars_and_tone_path = "BarsAndTone";
inline constexpr std::string_view graphic_path = "GraphicAndType";

/// In a sequence, takes off the end of `records` the clips of the same track that `clip` overlaps: without a
/// transition between them the later clip has replaced them. Writes a diagnostic for each, and notes
/// it in the result's losses.
void drop_overlapped_clips(const analysis_walk& walk, const track_context& track, const clip_item& clip,
                           std::vector<clip_record>& records);

} // namespace tallyframe
