// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"
#include "report/row_assembly.h"
#include "sheets/report_frame.h"
#include "support/counting_progress.h"
#include "support/records.h"
#include "support/workbook_content.h"

#include <initializer_list>

namespace tallyframe::testing_support {

using sheet_writer = void (*)(const report_frame&, running_report&);

/// A report of some sheets alone, at first of an empty sequence at 25 frames a second with eleven tracks of
/// each kind ticked.
struct written_report {
    analysis_result analysis = sequence_at_25();
    report_options options;
    track_ticks ticks = {std::vector<int>(11, 1), std::vector<int>(11, 1)};
    audio_tag_catalogue* tags = nullptr; ///< none: no row gets tags
    counting_progress display;
    running_report running; ///< as the last sheet left it

    /// Writes the sheets and reads the workbook back.
    workbook_content write(std::initializer_list<sheet_writer> writers);

    /// Switches exactly these columns on.
    void show_only(const std::vector<std::string>& titles);
};

inline const std::string header_look = "Helvetica 11 bold auto general General";
inline const std::string black_text = "Helvetica 11 plain black general General";
inline const std::string black_share = "Helvetica 11 plain black center 0.0%";
inline const std::string red_text = "Helvetica 11 plain red general General";
inline const std::string video_text = "Helvetica 11 plain blue general General";
inline const std::string video_center = "Helvetica 11 plain blue center General";
inline const std::string video_integer = "Helvetica 11 plain blue general ###,###,##0";
inline const std::string video_decimal = "Helvetica 11 plain blue general #,##0.00";
inline const std::string audio_text = "Helvetica 11 plain green general General";
inline const std::string audio_center = "Helvetica 11 plain green center General";
inline const std::string marker_text = "Helvetica 11 plain gray general General";
inline const std::string no_look = "Arial 10 plain auto general General";

} // namespace tallyframe::testing_support
