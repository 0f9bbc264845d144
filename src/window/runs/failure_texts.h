// SPDX-License-Identifier: MIT
#pragma once

#include "window/runs/session_runner.h"

#include <QString>
#include <exception>
#include <optional>

namespace tallyframe::window {

struct alert_texts {
    QString message_text;
    QString informative_text;
};

/// What stands against opening a file, where that can be told at once; nothing for one that can be read.
std::optional<alert_texts> obstacle_to_opening(const QString& path);

/// What the user is told about a run that has failed, and the system's log with it.
alert_texts texts_for_analysis(std::exception_ptr failure);
alert_texts texts_for_saving(std::exception_ptr failure);

} // namespace tallyframe::window
