// SPDX-License-Identifier: MIT
#pragma once

#include "run/diagnostics.h"

#include <string>
#include <string_view>

namespace tallyframe {

/// The debug representation of a text: in double quotes, with `"`, `\` and control characters escaped
/// (\n, \t, \r, \e …, others as \xHH) and everything else as it stands (UTF-8).
std::string debug_representation(std::string_view text);

/// Writes a text's debug representation and a line break to the diagnostics, unless gui_mode is true.
void log(diagnostics& out, std::string_view text);

/// The same for a number, a fraction or a flag that is already in its literal form, such as `42` or `true`.
void log_literal(diagnostics& out, std::string_view literal);

} // namespace tallyframe
