// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "platform/progress.h"
#include "report/column_switches.h"
#include "report/report_options.h"
#include "report/row_assembly.h"
#include "report/row_formats.h"
#include "report/table_columns.h"
#include "sheets/audio_tags.h"
#include "sheets/sheet_names.h"
#include "sheets/source_totals.h"
#include "sheets/thumbnails.h"
#include "workbook/workbook.h"

#include <vector>

namespace tallyframe {

/// What every sheet of a report is written from, and where it goes.
struct report_frame {
    xls::workbook& book;
    const analysis_result& analysis;
    const report_options& options;
    const report_rows& rows;
    const column_switches& switches;
    const row_formats& formats;
    progress& display;
    sequence_clock clock;
    audio_tag_catalogue* tags = nullptr; ///< none: no row gets tags
    thumbnail_run* thumbnails = nullptr; ///< none: no row gets a picture
};

/// What runs on from sheet to sheet.
struct running_report {
    sheet_names used_names;

    /// The formats of the rows on the sheets of generators and effects. A row changes what it has to and
    /// leaves the rest to the rows after it, across sheets; at first cells have no format.
    row_format_set row_formats;

    file_totals filepaths_summary; ///< files met on the clips sheet
    std::vector<source_total> reels_summary; ///< one entry per reel sheet
    xls::worksheet* reels_summary_sheet = nullptr; ///< waits for its rows until the reel sheets are written
};

} // namespace tallyframe
