// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <span>

namespace tallyframe::window {

/// A check box of the window and the option that it stands for.
struct option_checkbox {
    const char* object_name; ///< also its key in the settings
    bool report_options::*option;
    const char* title;
    const char* tool_tip;
};

/// The sheets of the workbook that can be left out.
std::span<const option_checkbox> sheet_checkboxes();

/// Which clips get a row.
std::span<const option_checkbox> row_checkboxes();

/// The pictures of in-points.
std::span<const option_checkbox> picture_checkboxes();

} // namespace tallyframe::window
