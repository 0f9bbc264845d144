// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace tallyframe {

/// Which host runs this process: false = the command line, true = the window, unset = not said yet.
///
/// The host sets it before it calls any operation. Unset counts as "not false" for the progress text and the
/// alerts, and as "not true" for `log`, so that both happen: a host that forgets to say what it is hides
/// nothing.
inline std::optional<bool> gui_mode;

} // namespace tallyframe
