// SPDX-License-Identifier: MIT
#pragma once

namespace tallyframe::window {

/// Opens the window, with the document that the first argument names, and runs until it is closed. Gives the
/// process's exit code.
int run_window(int argument_count, char** arguments);

} // namespace tallyframe::window
