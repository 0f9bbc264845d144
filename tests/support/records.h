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
    record.place.track = track;
    record.place.seq_start_frame = start;
    record.place.seq_end_frame = end;
    record.place.seq_length = end - start + 1;
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
    record.place.track_name = " Main";
    record.bin = "Day 1";
    record.src_start_frame = 250;
    record.src_end_frame = 299;
    record.src_length = 50;
    record.fcp_rate = frame_rate{25, false};
    record.type = "PAL (25 fps)";
    record.frame_size = "1920 × 1080";
    record.displayformat = display_format::non_drop_frame;
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
    record.place.track = track;
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
    analysis.seq_displayformat = display_format::non_drop_frame;
    return analysis;
}

/// A sequence with something for every sheet.
inline analysis_result sequence_for_every_sheet()
{
    analysis_result analysis = sequence_at_25();
    analysis.video_clip_data_array = {full_clip()};
    analysis.audio_clip_data_array = {clip_of_file("/song.wav", "A1", 0, 49)};
    analysis.generatoritem_array = {generator("Title", "V1", 0, 9), generator("Slug", "V1", 10, 19)};
    analysis.video_transition_array = {transition("Wipe", true, "V1")};
    analysis.audio_transition_array = {transition("Cross Fade", true, "A1")};
    analysis.video_clip_filter_array = {filter("Blur", true, "V1")};
    analysis.video_clip_motion_array = {motion("Scale (50%)", "V1")};
    analysis.video_clip_marker_array = {clip_marker("Note", "V1", 3)};
    analysis.seq_markers_data_array = {sequence_marker("Start", 0), sequence_marker("End", 99)};
    analysis.reels_array = {"A001", "B002"};
    return analysis;
}

} // namespace tallyframe::testing_support
