// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "report/clip_columns.h"
#include "report/report_options.h"
#include "report/row_assembly.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe::window {

/// The sheet "All Reels" as it would be written: its cells are computed when somebody looks at them.
class preview_table {
public:
    /// Nothing to show.
    preview_table() = default;

    /// `analysis` has to outlive this; `options` need not.
    preview_table(const analysis_result& analysis, const track_ticks& ticks, const report_options& options);

    std::size_t row_count() const { return rows_.size(); }
    std::size_t column_count() const { return std::max(columns_.headers.size(), columns_.cells.size()); }

    /// Empty where the workbook has no header text.
    std::string_view header(std::size_t column) const;

    /// Points into the table.
    cell_value cell(std::size_t row, std::size_t column) const;
    cell_kind kind(std::size_t column) const;
    bool is_audio_row(std::size_t row) const;
    bool is_picture_column(std::size_t column) const { return columns_.picture_column == column; }

    /// Width in characters that the workbook's column would have after the first `rows` rows.
    double width(std::size_t column, std::size_t rows) const;

private:
    report_rows assembled_;
    std::vector<const clip_record*> rows_; ///< those that get a row of their own
    clip_sheet_columns columns_;
    sequence_clock clock_;
};

} // namespace tallyframe::window
