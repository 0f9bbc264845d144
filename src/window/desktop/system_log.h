// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tallyframe::window {

/// Writes a text to the system's log, for whoever supports the user later: what Qt takes for it on each
/// system (the journal of a desktop session, the console on macOS).
void write_system_log(std::string_view text);

} // namespace tallyframe::window
