// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"
#include "run/account.h"
#include "run/diagnostics.h"
#include "run/failures.h"
#include "run/progress.h"
#include "sheets/sheet.h"

#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <utility>

namespace tallyframe {

/// The file has no room for all rows of a sheet. what() names the sheet and its rows.
class sheet_too_long : public failure {
public:
    sheet_too_long(std::string sheet_name, const std::string& message)
        : failure(message), sheet(std::move(sheet_name))
    {
    }
    std::string sheet;
};

/// The colours that the user chose: names of color_names(), or "#RRGGBB".
struct row_colors {
    std::string video;
    std::string audio;
    std::string marker;
};

row_colors colors_of(const report_options& options);

/// Sheets on their way into a file.
struct writing {
    std::span<const sheet> sheets;
    row_colors colors;
    std::string title; ///< what file managers show of the file
    std::filesystem::path path;

    /// Called when the file is complete and before it takes its place. What it throws leaves the place as it
    /// was.
    std::function<void()> before_it_appears = [] {};

    diagnostics& out;
    progress& display;
};

/// A kind of file that a report can be written into.
struct file_format {
    /// Writes the sheets into a file, whole or not at all: a failure leaves an older file as it was and
    /// nothing else behind. Takes the sheets' steps of the progress, then shows "Saving spreadsheet...\n".
    /// Gives what the file lost without failing. Throws failure (a colour that is none, a disk that fails),
    /// its sheet_too_long, and run_cancelled.
    account (*write)(const writing&);

    /// Throws the failure that writing would end with now because the path takes no file.
    void (*check_place)(const std::filesystem::path&);
};

} // namespace tallyframe
