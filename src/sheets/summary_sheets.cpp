// SPDX-License-Identifier: MIT
#include "sheets/summary_sheets.h"

#include "report/sheet_set.h"
#include "sheets/table_sheet.h"
#include "timecode/to_timecode.h"

#include <algorithm>

namespace tallyframe {

namespace {

enum summary_column : std::size_t { name_column, total_column, share_column, path_column };

constexpr double total_width = 15; ///< of "Estimated Total"
constexpr double share_width = 10; ///< of "% of Total"
constexpr double reel_name_width = 17; ///< of "Source Reel Name" and a blank

/// The share's column format shows in empty cells alone, as do all column formats here.
void set_widths_of_totals(xls::worksheet& sheet, const row_formats& formats)
{
    sheet.set_column(total_column, total_column, total_width);
    sheet.set_column(share_column, share_column, share_width, formats.black.center_format);
}

/// The name has no format. A share of nothing (0 ÷ 0) is no number and shows as an error.
void write_summary_row(xls::worksheet& sheet, std::size_t row, const source_total& total, double sum,
                       const report_frame& frame)
{
    sheet.write_string(row, name_column, total.name);
    sheet.write_string(
        row, total_column,
        to_timecode(total.estimated_total, frame.clock.seq_fcp_rate, frame.clock.seq_displayformat),
        frame.formats.black.text_format);
    sheet.write_number(row, share_column, total.estimated_total / sum, frame.formats.black.center_format);
}

} // namespace

void write_files_summary(const report_frame& frame, running_report& running)
{
    xls::worksheet& sheet = add_sheet(frame, running, sheet_name(report_sheet::files_summary));
    write_headers(sheet, 0, {"File Name", "Estimated Total", "% of Total", "File Path"},
                  frame.formats.header_format);
    set_widths_of_totals(sheet, frame.formats);
    column_widths widths(path_column + 1);
    widths[name_column] = std::string_view("File Name ").size();
    widths[path_column] = std::string_view("File Path ").size();

    std::vector<source_total> files = running.filepaths_summary.entries();
    const double sum = sum_of(files);
    std::stable_sort(files.begin(), files.end(), [](const source_total& left, const source_total& right) {
        return left.name < right.name;
    });
    std::size_t row = 0;
    for (const source_total& file : files) {
        write_summary_row(sheet, ++row, file, sum, frame);
        sheet.write_string(row, path_column, file.path);
        widen(widths, name_column, file.name);
        widen(widths, path_column, file.path);
    }
    for (const std::size_t column : {name_column, path_column})
        sheet.set_column(column, column, finished_width(widths[column]), frame.formats.header_format);
}

void add_reels_summary(const report_frame& frame, running_report& running)
{
    xls::worksheet& sheet = add_sheet(frame, running, sheet_name(report_sheet::reels_summary));
    write_headers(sheet, 0, {"Source Reel Name", "Estimated Total", "% of Total"},
                  frame.formats.header_format);
    sheet.set_column(name_column, name_column, reel_name_width);
    set_widths_of_totals(sheet, frame.formats);
    running.reels_summary_sheet = &sheet;
}

void write_reels_summary_rows(const report_frame& frame, const running_report& running)
{
    if (running.reels_summary_sheet == nullptr)
        return;
    const double sum = sum_of(running.reels_summary);
    std::size_t row = 0;
    for (const source_total& reel : running.reels_summary)
        write_summary_row(*running.reels_summary_sheet, ++row, reel, sum, frame);
}

} // namespace tallyframe
