// SPDX-License-Identifier: MIT
#pragma once

class QApplication;

namespace tallyframe::window {

/// Makes Ctrl-C, a polite request to end and the end of the terminal close the window as its button does, so
/// that a run on its way leaves nothing behind. A second one ends the process at once.
void close_on_signals(QApplication& app);

} // namespace tallyframe::window
