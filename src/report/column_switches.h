// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tallyframe {

/// The column groups of a clip sheet that a layout switches on or off.
enum class column_switch {
    row_numbers,
    track,
    enabled,
    sequence_in,
    sequence_out,
    clip_duration,
    source_reel_name,
    source_in,
    source_out,
    source_duration,
    sound_roll_name,
    description,
    scene,
    shot_take,
    log_note,
    camera_roll,
    daily_roll,
    lab_roll,
    labels,
    comments,
    frame_rate_sample_rate,
    frame_size,
    source_file_name,
    source_file_path,
    id3_metadata,
};

inline constexpr std::size_t column_switch_count = 25;

struct column_switch_entry {
    column_switch which;
    std::string_view title; ///< of its check box in a layout
    bool on_by_default;
    bool off_for_bins = false; ///< clips of bins stand on no timeline
};

/// Every switch, in the order of the enumeration.
inline constexpr std::array<column_switch_entry, column_switch_count> all_column_switches = {{
    {column_switch::row_numbers, "Row Numbers", false},
    {column_switch::track, "Track", true},
    {column_switch::enabled, "Enabled", true, true},
    {column_switch::sequence_in, "Sequence In", true, true},
    {column_switch::sequence_out, "Sequence Out", true, true},
    {column_switch::clip_duration, "Clip Duration", true, true},
    {column_switch::source_reel_name, "Source Reel Name", true},
    {column_switch::source_in, "Source In", true},
    {column_switch::source_out, "Source Out", true},
    {column_switch::source_duration, "Source Duration", true},
    {column_switch::sound_roll_name, "Sound Roll Name", false},
    {column_switch::description, "Description", true},
    {column_switch::scene, "Scene", true},
    {column_switch::shot_take, "Shot/Take", true},
    {column_switch::log_note, "Log Note", true},
    {column_switch::camera_roll, "Camera Roll", true},
    {column_switch::daily_roll, "Daily Roll", true},
    {column_switch::lab_roll, "Lab Roll", true},
    {column_switch::labels, "Labels", true},
    {column_switch::comments, "Comments", false},
    {column_switch::frame_rate_sample_rate, "Frame Rate/Sample Rate", true},
    {column_switch::frame_size, "Frame Size", true},
    {column_switch::source_file_name, "Source File Name", true},
    {column_switch::source_file_path, "Source File Path", true},
    {column_switch::id3_metadata, "ID3 Metadata", true},
}};

/// Which switches are on for one report.
class column_switches {
public:
    bool is_on(column_switch which) const { return on_[static_cast<std::size_t>(which)]; }
    void set(column_switch which, bool on) { on_[static_cast<std::size_t>(which)] = on; }

private:
    std::array<bool, column_switch_count> on_{};
};

/// The switches that the options' layout asks for. Without a layout the defaults hold; a layout switches off
/// what it does not list. Throws failure when layouts_array has no layout of the chosen name.
column_switches chosen_columns(const report_options& options, bool is_sequence);

} // namespace tallyframe
