// SPDX-License-Identifier: MIT
#include "sheets/summary_sheets.h"

#include "report/shared_rows.h"
#include "report/time_cells.h"
#include "sheets/reel_sheets.h"
#include "sheets/source_totals.h"

#include <algorithm>
#include <utility>

namespace tallyframe {

namespace {

enum summary_column : std::size_t { name_column, total_column, share_column, path_column };

constexpr cell_look header_look = {text_color::header, cell_form::text};
constexpr cell_look total_look = {text_color::black, cell_form::text};
constexpr cell_look share_look = {text_color::black, cell_form::percent};

/// Column formats show in empty cells alone.
constexpr sheet_column total_width = {.width = std::string_view("Estimated Total").size()};
constexpr sheet_column share_width = {.width = std::string_view("% of Total").size(),
                                      .empty_look = share_look};

/// A name and a path have no format. A share of nothing (0 ÷ 0) is no number and shows as an error.
sheet_cell cell_of(const source_total& total, double sum, std::size_t column, const sequence_clock& clock)
{
    switch (column) {
    case name_column:
        return {total.name, {}};
    case total_column:
        return {sequence_timecode_text(total.estimated_total, clock), total_look};
    case share_column:
        return {total.estimated_total / sum, share_look};
    case path_column:
        return {total.path, {}};
    default:
        return {};
    }
}

sheet sheet_of_totals(const report_frame& frame, std::string_view name, std::vector<std::string> headers,
                      std::vector<source_total> totals, double sum)
{
    const std::size_t width = headers.size();
    const std::size_t count = totals.size();
    sheet made = empty_sheet(std::string(name), {.headers = headers}, count);
    made.cell = [around = cells_around({.headers = std::move(headers)}, count), totals = std::move(totals),
                 sum, width, clock = frame.clock](std::size_t row, std::size_t column) -> sheet_cell {
        const bool is_record = row > 0 && row <= totals.size() && column < width;
        return is_record ? cell_of(totals[row - 1], sum, column, clock) : around(row, column);
    };
    return made;
}

} // namespace

void add_files_summary(const report_frame& frame, growing_report& report)
{
    std::vector<source_total> files =
        totals_of_files(rows_of_clips_sheet(frame.rows.clip_data_array), frame.analysis.figures);
    const double sum = sum_of(files);
    std::stable_sort(files.begin(), files.end(), [](const source_total& left, const source_total& right) {
        return left.name < right.name;
    });
    sheet made =
        sheet_of_totals(frame, files_summary_name,
                        {"File Name", "Estimated Total", "% of Total", "File Path"}, std::move(files), sum);
    const sheet_column text_width = {
        .width = std::string_view("File Name ").size(), .widens = true, .empty_look = header_look};
    made.columns = {text_width, total_width, share_width, text_width};
    report.add(std::move(made));
}

void add_reels_summary(const report_frame& frame, growing_report& report)
{
    std::vector<source_total> reels = totals_of_reels(frame);
    const double sum = sum_of(reels);
    sheet made =
        sheet_of_totals(frame, reels_summary_name, {"Source Reel Name", "Estimated Total", "% of Total"},
                        std::move(reels), sum);
    made.columns = {{.width = std::string_view("Source Reel Name ").size()}, total_width, share_width};
    made.follows_others = true;
    report.add(std::move(made));
}

} // namespace tallyframe
