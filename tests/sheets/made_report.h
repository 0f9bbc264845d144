// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"
#include "report/row_assembly.h"
#include "sheets/report_frame.h"
#include "sheets/source_totals.h"
#include "support/records.h"
#include "support/shown_sheet.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace tallyframe::testing_support {

using sheet_maker = void (*)(const report_frame&, growing_report&);

/// A report of some sheets alone, at first of an empty sequence at 25 frames a second with eleven tracks of
/// each kind ticked.
struct made_report {
    analysis_result analysis = sequence_at_25();
    report_options options;
    track_ticks ticks = {std::vector<int>(11, 1), std::vector<int>(11, 1)};
    audio_tag_catalogue* tags = nullptr; ///< none: no row gets tags

    std::size_t steps = 0; ///< of the progress that the sheets made last take
    row_look running_look; ///< as the last sheet left it
    std::vector<source_total> files_summary; ///< media files met
    std::vector<source_total> reels_summary; ///< reels met

    shown_report make(std::initializer_list<sheet_maker> makers);

    /// Switches exactly these columns on.
    void show_only(const std::vector<std::string>& titles);
};

} // namespace tallyframe::testing_support
