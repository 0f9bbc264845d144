// SPDX-License-Identifier: MIT
#include "window/preview_table.h"

#include "report/shared_rows.h"
#include "report/time_cells.h"

namespace tallyframe::window {

preview_table::preview_table(const analysis_result& analysis, const track_ticks& ticks,
                             const report_options& options)
    : assembled_(assemble_rows(analysis, ticks, options.report_enabled_only, options.skip_video_clip_audio)),
      rows_(rows_of_clips_sheet(assembled_.clip_data_array)),
      columns_(expand_clip_columns(clip_sheet::all_reels, options,
                                   chosen_columns(options, analysis.is_sequence), analysis.is_sequence)),
      clock_(clock_of(analysis))
{
}

std::string_view preview_table::header(std::size_t column) const
{
    return column < columns_.headers.size() ? std::string_view(columns_.headers[column]) : std::string_view();
}

cell_value preview_table::cell(std::size_t row, std::size_t column) const
{
    if (row >= rows_.size() || column >= columns_.cells.size() || !columns_.cells[column].value)
        return {};
    return columns_.cells[column].value(*rows_[row], {.sheet_row = row + 1, .clock = clock_});
}

cell_kind preview_table::kind(std::size_t column) const
{
    return column < columns_.cells.size() ? columns_.cells[column].kind : cell_kind::text;
}

bool preview_table::is_audio_row(std::size_t row) const
{
    return is_audio(*rows_[row]);
}

double preview_table::width(std::size_t column, std::size_t rows) const
{
    if (column >= columns_.widths.size())
        return static_cast<double>(text_length(header(column)) + 1);
    std::size_t widest = columns_.widths[column] + 1;
    if (column < columns_.cells.size() && columns_.cells[column].widens) {
        for (std::size_t row = 0; row < std::min(rows, rows_.size()); ++row) {
            const cell_value value = cell(row, column);
            if (const auto* text = std::get_if<std::string_view>(&value))
                widest = std::max(widest, text_length(*text));
            else if (const auto* made_text = std::get_if<std::string>(&value))
                widest = std::max(widest, text_length(*made_text));
        }
    }
    return finished_width(widest);
}

} // namespace tallyframe::window
