// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace tallyframe::window {

/// Opens the guide: what each option puts where.
void show_guide(QWidget* main_window);

/// Opens the box with the versions.
void show_about(QWidget* main_window);

} // namespace tallyframe::window
