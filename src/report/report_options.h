// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// The forms in which a time is shown, in the order in which their columns stand.
enum class time_format { timecode, clock, frames, feet_and_frames, seconds };

struct time_format_name {
    time_format format;
    std::string_view name;
};

inline constexpr std::array<time_format_name, 5> time_formats = {{
    {time_format::timecode, "Timecode"},
    {time_format::clock, "Clock"},
    {time_format::frames, "Frames"},
    {time_format::feet_and_frames, "Feet+Frames"},
    {time_format::seconds, "Seconds"},
}};

/// Frames that the report adds to timeline positions, one number per time format.
struct time_adjustments {
    std::int64_t hhmmssff_adj = 0;
    std::int64_t clock_adj = 0;
    std::int64_t frames_adj = 0;
    std::int64_t feetframes_adj = 0;
    std::int64_t seconds_adj = 0;
};

/// A saved column layout: the states (0 off, 1 on, -1 mixed) of its check boxes by their titles. A title that
/// it does not list is off.
struct column_layout {
    struct checkbox {
        std::string title;
        int state = 0;

        bool operator==(const checkbox&) const = default;
    };
    std::string name;
    std::vector<checkbox> checkboxes;

    bool operator==(const column_layout&) const = default;
};

/// How wide in-point thumbnails may be, in pixels.
inline constexpr std::int64_t narrowest_thumbnail = 16;
inline constexpr std::int64_t widest_thumbnail = 1920;

/// What a report is made with. The defaults are those of a run without a window.
struct report_options {
    std::string video_row_color = "blue"; ///< videoRowColorPopup: a colour that the workbook knows
    std::string audio_row_color = "green";
    std::string marker_row_color = "gray";

    bool markers_sheets = true; ///< markersSheetsCheckbox
    bool generators_sheet = true; ///< generatorsSheetCheckbox
    bool transitions_sheet = true; ///< transitionsSheetCheckbox
    bool filters_sheet = true; ///< filtersSheetCheckbox
    bool motion_sheet = true; ///< motionSheetCheckbox
    bool summary_sheet = true; ///< summarySheetCheckbox: "Files Summary"
    bool media_sheet = false; ///< "Media Check": opens every media file
    std::int64_t media_handles = 0; ///< frames around what clips show that a file has to have too
    bool reel_sheets = true; ///< reelSheetsCheckbox: "Reels Summary" and the sheets per reel

    /// Title selected in layoutsAppPopupMenu, a name out of layouts_array; nothing for "Default".
    std::optional<std::string> layout;
    std::vector<column_layout> layouts_array;

    std::vector<time_format> timeline_time_columns = {time_format::timecode}; ///< order and repeats as given
    std::vector<time_format> source_time_columns = {time_format::timecode};
    time_adjustments adjustments;

    bool report_enabled_only = false;
    bool skip_video_clip_audio = false; ///< videoClipAudioCheckbox

    bool audio_tags = true; ///< off: the columns of "ID3 Metadata" are left out, whatever the layout says
    bool inpoint_thumbnail_jpegs = false;
    std::int64_t thumbnail_width = 320; ///< pixels
    bool keep_thumbnails = false; ///< keepThumbnailsCheckbox
};

} // namespace tallyframe
