// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tallyframe::window {

/// What the window's program was asked for: at most one of these holds something.
struct window_request {
    std::string document; ///< to open
    std::string answer; ///< for standard output; no window is wanted
    std::string complaint; ///< for standard error: what cannot be done, and what can
};

/// `arguments`: without the program's name. Those of Qt itself ("-platform", "-style" …) are left to it.
window_request read_window_arguments(const std::vector<std::string>& arguments);

} // namespace tallyframe::window
