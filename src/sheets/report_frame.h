// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "report/column_switches.h"
#include "report/report_options.h"
#include "report/row_assembly.h"
#include "report/table_columns.h"
#include "sheets/audio_tags.h"
#include "sheets/media_check.h"
#include "sheets/sheet.h"
#include "sheets/sheet_names.h"
#include "sheets/table_sheet.h"
#include "sheets/thumbnails.h"

#include <vector>

namespace tallyframe {

/// What every sheet of a report is made from. All of it outlives the sheets.
struct report_frame {
    const analysis_result& analysis;
    const report_options& options;
    const report_rows& rows;
    column_switches switches;
    sequence_clock clock;
    audio_tag_catalogue* tags = nullptr; ///< none: no row gets tags
    thumbnail_run* thumbnails = nullptr; ///< none: no row gets a picture
    const media_inspection* inspection = nullptr; ///< none: media files are not looked at
};

/// The sheets of a report while they are made, and what runs on from one to the next.
struct growing_report {
    std::vector<sheet> sheets;
    sheet_names used_names;

    /// The look of the rows on the sheets of generators and effects. A row changes what it has to and leaves
    /// the rest to the rows after it, across sheets; at first cells have no format.
    row_look running_look;

    void add(sheet made)
    {
        used_names.add(made.name);
        sheets.push_back(std::move(made));
    }
};

} // namespace tallyframe
