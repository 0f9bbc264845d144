// SPDX-License-Identifier: MIT
#include "sheets/written_report.h"

#include "report/time_cells.h"
#include "support/temporary_folder.h"

namespace tallyframe::testing_support {

workbook_content written_report::write(std::initializer_list<sheet_writer> writers)
{
    const temporary_folder folder;
    const auto path = folder.path() / "report.xls";
    const report_rows rows =
        assemble_rows(analysis, ticks, options.report_enabled_only, options.skip_video_clip_audio);
    const column_switches switches = chosen_columns(options, analysis.is_sequence);
    xls::workbook book(path);
    const row_formats formats = add_row_formats(book, options);

    running = {};
    const report_frame frame = {book,    analysis,           options, rows, switches, formats,
                                display, clock_of(analysis), tags};
    for (const sheet_writer write_sheet : writers)
        write_sheet(frame, running);
    book.close();
    return read_workbook(path);
}

void written_report::show_only(const std::vector<std::string>& titles)
{
    options.layout = "Test";
    options.layouts_array = {{"Test", {}}};
    for (const std::string& title : titles)
        options.layouts_array.front().checkboxes.push_back({title, 1});
}

} // namespace tallyframe::testing_support
