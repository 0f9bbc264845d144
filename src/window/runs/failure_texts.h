// SPDX-License-Identifier: MIT
#pragma once

#include "window/runs/session_runner.h"

#include <QString>
#include <exception>

namespace tallyframe::window {

struct alert_texts {
    QString message_text;
    QString informative_text;
};

/// What the user is told about a run that has failed, and the system's log with it.
alert_texts texts_for_analysis(std::exception_ptr failure);
alert_texts texts_for_saving(std::exception_ptr failure);

} // namespace tallyframe::window
