// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <span>
#include <string>

namespace tallyframe::window {

/// A menu of row colours and the option that it stands for.
struct color_popup {
    const char* object_name; ///< also its key in the settings
    std::string report_options::*option;
    const char* title;
    const char* tool_tip;
};

std::span<const color_popup> row_color_popups();

} // namespace tallyframe::window
