// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"

#include <string>

// Records for tests, with only what most cases are about. `start` and `end` are frames, the end inclusive.

namespace tallyframe::testing_support {

template <class Record>
Record placed(const std::string& track, std::int64_t start, std::int64_t end)
{
    Record record;
    record.track = track;
    record.seq_start_frame = start;
    record.seq_end_frame = end;
    record.seq_length = end - start + 1;
    return record;
}

inline clip_record clip(const std::string& name, const std::string& track, std::int64_t start,
                        std::int64_t end)
{
    auto record = placed<clip_record>(track, start, end);
    record.name = name;
    record.notes.label = "None";
    return record;
}

inline clip_record clip_of_file(const std::string& path, const std::string& track, std::int64_t start,
                                std::int64_t end)
{
    auto record = clip("Clip", track, start, end);
    record.path = path;
    return record;
}

/// A clip with every field that a column shows.
inline clip_record full_clip()
{
    auto record = clip("Interview", "V1", 90000, 90049);
    record.track_name = " Main";
    record.bin = "Day 1";
    record.src_start_frame = 250;
    record.src_end_frame = 299;
    record.src_length = 50;
    record.fcp_rate = frame_rate{25, false};
    record.type = "PAL (25 fps)";
    record.frame_size = "1920 × 1080";
    record.displayformat = "NDF";
    record.notes = {.description = "description",
                    .scene = "scene",
                    .shottake = "shottake",
                    .lognote = "lognote",
                    .scenenote = "scenenote",
                    .shotnote = "shotnote",
                    .takenote = "takenote",
                    .cameraroll = "cameraroll",
                    .dailyroll = "dailyroll",
                    .labroll = "labroll",
                    .label = "Best Take",
                    .mastercomment1 = "mastercomment1",
                    .mastercomment2 = "mastercomment2",
                    .mastercomment3 = "mastercomment3",
                    .mastercomment4 = "mastercomment4",
                    .clipcommenta = "clipcommenta",
                    .clipcommentb = "clipcommentb"};
    record.reel_name = "A001";
    record.roll_name = "S12";
    record.path = "/Volumes/Media/Interview.mov";
    return record;
}

inline generator_record generator(const std::string& name, const std::string& track, std::int64_t start,
                                  std::int64_t end)
{
    auto record = placed<generator_record>(track, start, end);
    record.name = name;
    record.type = "Slug";
    return record;
}

inline transition_record transition(const std::string& name, bool apple, const std::string& track,
                                    std::int64_t start = 0, std::int64_t end = 15)
{
    auto record = placed<transition_record>(track, start, end);
    record.name = name;
    record.apple = apple;
    return record;
}

inline filter_record filter(const std::string& name, bool apple, const std::string& track,
                            std::int64_t start = 0, std::int64_t end = 15)
{
    auto record = placed<filter_record>(track, start, end);
    record.name = name;
    record.apple = apple;
    record.clip_name = "Clip";
    return record;
}

inline motion_record motion(const std::string& name, const std::string& track, std::int64_t start = 0,
                            std::int64_t end = 15)
{
    auto record = placed<motion_record>(track, start, end);
    record.name = name;
    record.clip_name = "Clip";
    return record;
}

inline marker_record sequence_marker(const std::string& name, std::int64_t in_frame)
{
    marker_record record;
    record.name = name;
    record.in_frame = in_frame;
    record.out_frame = in_frame;
    return record;
}

inline clip_marker_record clip_marker(const std::string& name, const std::string& track,
                                      std::int64_t in_frame)
{
    clip_marker_record record;
    record.name = name;
    record.track = track;
    record.in_frame = in_frame;
    record.out_frame = in_frame;
    return record;
}

/// A sequence of 25 frames a second, without drop frames and without records.
inline analysis_result sequence_at_25()
{
    analysis_result analysis;
    analysis.is_sequence = true;
    analysis.sequence_name = "Cut";
    analysis.seq_fcp_rate = frame_rate{25, false};
    analysis.seq_displayformat = "NDF";
    return analysis;
}

} // namespace tallyframe::testing_support
