// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "analysis/effect_records.h"
#include "media/file_record.h"
#include "media/marker_record.h"
#include "run/account.h"
#include "run/figure_style.h"
#include "timecode/display_format.h"
#include "timecode/frame_rates.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tallyframe {

/// What the window's track tables say of a track.
struct track_description {
    std::string label; ///< "V1"
    std::string name; ///< empty, or a blank and the name
    std::string enabled;
    std::int64_t item_count = 0; ///< clip, generator and transition items
};

/// Everything that the report is written from: the sequence's header and the records of its tracks, in the
/// order of the walk (tracks in document order; in a track clip items, then generators, then transitions).
struct analysis_result {
    figure_style figures = figure_style::comparable; ///< of the records, and of the report made from them
    bool is_sequence = false; ///< false for the clips of the bins
    std::string sequence_name;
    std::int64_t sequence_duration = 0; ///< frames
    std::optional<frame_rate> seq_fcp_rate; ///< nothing for bins
    display_format seq_displayformat = display_format::unknown;
    std::optional<std::string> sequence_width;
    std::optional<std::string> sequence_height;
    std::optional<std::string> seq_samplerate;
    bool ppro = false; ///< the document comes from Premiere Pro

    std::vector<track_description> video_tracks;
    std::vector<track_description> audio_tracks;

    std::vector<clip_record> video_clip_data_array;
    std::vector<filter_record> video_clip_filter_array;
    std::vector<motion_record> video_clip_motion_array;
    std::vector<clip_marker_record> video_clip_marker_array;
    std::vector<transition_record> video_transition_array;
    std::vector<generator_record> generatoritem_array;

    std::vector<clip_record> audio_clip_data_array;
    std::vector<filter_record> audio_clip_filter_array;
    std::vector<clip_marker_record> audio_clip_marker_array;
    std::vector<transition_record> audio_transition_array;

    std::vector<file_record> media_files; ///< those that clips show, in the order met

    std::vector<marker_record> seq_markers_data_array;
    account losses; ///< items that were not listed, and facts that were supplied
    std::vector<std::string> reels_array; ///< each reel's name once, in ascending order of their bytes
};

} // namespace tallyframe
