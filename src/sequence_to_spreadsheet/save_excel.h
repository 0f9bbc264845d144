// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "document/track_checkboxes.h"
#include "platform/diagnostics.h"
#include "platform/media_services.h"
#include "platform/progress.h"
#include "platform/workspace.h"
#include "report/report_options.h"

#include <filesystem>

namespace tallyframe {

/// The host's services that writing a report uses.
struct report_services {
    diagnostics& out;
    progress& display;
    workspace* desktop = nullptr; ///< none: no folder is opened
    const media_services* media = nullptr; ///< none: media files are not looked at
};

/// Writes the report of an analysed sequence, or of the bins, as a workbook at `path`.
///
/// `video_checkboxes`, `audio_checkboxes`: which tracks are reported. Closes the progress display at the end.
/// Throws xls::workbook_error (a row colour that is none, a disk that fails), its xls::too_many_rows (what()
/// names the sheet), failure (a column layout that is not there) and run_cancelled. Then nothing is written
/// and an older file at `path` is as it was.
///
/// In-point thumbnails need the pictures and the folder of `services.media`. Once the workbook is saved, the
/// folder is kept and opened, or emptied, as the options say; a failed run leaves it to its owner.
void save_excel(const analysis_result& analysis, const track_checkboxes& video_checkboxes,
                const track_checkboxes& audio_checkboxes, const report_options& options,
                const std::filesystem::path& path, const report_services& services);

} // namespace tallyframe
