// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace tallyframe::window {

/// Asks for a timeline, beginning in the folder of `latest` unless that is empty. Calls `open` with the
/// chosen path.
void ask_what_to_open(QWidget* main_window, const QString& latest,
                      const std::function<void(const QString& path)>& open);

} // namespace tallyframe::window
