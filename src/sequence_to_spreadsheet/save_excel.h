// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "document/track_checkboxes.h"
#include "platform/media_services.h"
#include "platform/workspace.h"
#include "report/report_options.h"
#include "run/account.h"
#include "run/diagnostics.h"
#include "run/progress.h"

#include <filesystem>

namespace tallyframe {

/// The host's services that writing a report uses.
struct report_services {
    diagnostics& out;
    progress& display;
    workspace* desktop = nullptr; ///< none: no folder is opened
    const media_services* media = nullptr; ///< none: media files are not looked at
};

/// Writes the report of an analysed sequence, or of the bins, as a workbook at `path`. Gives what the
/// workbook lost without failing.
///
/// `video_checkboxes`, `audio_checkboxes`: which tracks are reported. Closes the progress display at the end.
/// Throws failure (a row colour or a column layout that is not there, a disk that fails), its sheet_too_long
/// (what() names the sheet) and run_cancelled. Then nothing is written
/// and an older file at `path` is as it was.
///
/// In-point thumbnails need the pictures and the folder of `services.media`. As the options say, they are
/// put beside the workbook, both or neither, and their place is opened; or deleted once the workbook is
/// saved. A failed run leaves them to the folder's owner.
account save_excel(const analysis_result& analysis, const track_checkboxes& video_checkboxes,
                   const track_checkboxes& audio_checkboxes, const report_options& options,
                   const std::filesystem::path& path, const report_services& services);

} // namespace tallyframe
