// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/report_scope.h"
#include "report/report_options.h"
#include "run/figure_style.h"

#include <string>
#include <string_view>

// Names that a flag takes, looked up. Each throws usage_error, with the valid names in it, for a name that is
// not known. `flag`: the flag that the user gave the name to.

namespace tallyframe::cli {

time_format time_format_named(std::string_view name, std::string_view flag);

/// "video+audio", "video" or "audio".
report_scope scope_named(std::string_view name);

/// "comparable" or "exact".
figure_style figure_style_named(std::string_view name);

/// The title itself, when a column layout knows it.
std::string checkbox_titled(std::string_view title);

void check_color(std::string_view name, std::string_view flag);

} // namespace tallyframe::cli
