// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"

#include <vector>

namespace tallyframe {

/// Which tracks are reported: one entry per track of the window's tables, 1 for ticked; the first is V1 or
/// A1.
struct track_ticks {
    std::vector<int> video;
    std::vector<int> audio;
};

/// The rows of the sheets: the records of the ticked tracks. They point into the analysis, which has to
/// outlive them, and into generator_rows.
struct report_rows {
    std::vector<const clip_record*> clip_data_array; ///< by seq_start_frame, then by track label
    std::vector<const clip_marker_record*> clip_markers; ///< by in_frame, then by track label
    std::vector<const generator_record*> generators; ///< track by track
    std::vector<const filter_record*> filters; ///< by seq_start_frame, then by track label
    std::vector<const motion_record*> motion; ///< track by track
    std::vector<const transition_record*> transitions; ///< by seq_start_frame, then by track label

    std::vector<clip_record> generator_rows; ///< the generators once more, as rows among the clips

    report_rows() = default;
    report_rows(report_rows&&) = default;
    report_rows& operator=(report_rows&&) = default;
    report_rows(const report_rows&) = delete; // a copy would point into the original
    report_rows& operator=(const report_rows&) = delete;
    ~report_rows() = default;
};

/// `enabled_only`: records whose `enabled` is not exactly "TRUE" are left out, of every kind.
/// `skip_video_clip_audio`: audio clips whose media file is also that of a video clip, on whatever track, are
/// left out of the clips; their markers and filters stay. Records that compare equal keep their order.
report_rows assemble_rows(const analysis_result& analysis, const track_ticks& ticks, bool enabled_only,
                          bool skip_video_clip_audio);

} // namespace tallyframe
