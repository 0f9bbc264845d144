// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "report/report_options.h"
#include "report/row_assembly.h"
#include "sheets/audio_tags.h"
#include "sheets/media_check.h"
#include "sheets/sheet.h"
#include "sheets/thumbnails.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace tallyframe {

/// A report before it is written or shown: its sheets in their order, and the rows that they are made from.
struct report {
    std::unique_ptr<const report_rows> rows; ///< the sheets point into them
    std::vector<sheet> sheets;
};

/// `tags`, `thumbnails`: none for rows without them. `inspection`: used meanwhile, for the check of media;
/// none leaves it undone. The analysis and these two have to outlive the report, the options need not. Throws
/// failure for a column layout that is not there.
report make_report(const analysis_result& analysis, const track_ticks& ticks, const report_options& options,
                   audio_tag_catalogue* tags = nullptr, thumbnail_run* thumbnails = nullptr,
                   const media_inspection* inspection = nullptr);

/// Steps of the progress: those of all sheets.
std::size_t progress_steps(const report& of);

} // namespace tallyframe
