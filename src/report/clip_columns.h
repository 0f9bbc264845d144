// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "report/column_switches.h"
#include "report/report_options.h"
#include "report/table_columns.h"

#include <cstddef>
#include <optional>

namespace tallyframe {

/// The two kinds of sheets that list clips.
enum class clip_sheet { all_reels, one_reel };

/// The columns of a clip sheet. Where a time format is chosen twice, its adjusted headers and its cells stand
/// once but the plain headers and the widths twice; where none is chosen, a width stays without a column.
struct clip_sheet_columns : sheet_columns<clip_record> {
    std::optional<std::size_t> picture_column; ///< its cells are none; a picture goes there
    std::optional<std::size_t> first_source_duration;
    bool has_audio_tags = false; ///< the tags of an audio row's file follow its last cell
};

/// Expands the clip columns over the chosen time formats. `options` need not outlive the result.
clip_sheet_columns expand_clip_columns(clip_sheet sheet, const report_options& options,
                                       const column_switches& switches, bool is_sequence,
                                       figure_style figures = figure_style::comparable);

} // namespace tallyframe
