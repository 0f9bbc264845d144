// SPDX-License-Identifier: MIT
#pragma once

#include "window/runs/session_runner.h"

#include <QString>

namespace tallyframe::window {

/// One line about what was analysed: its title, rate, size and sample rate.
QString summary_of(const analysis_result& analysis, const QString& title);

struct page_texts {
    QString headline;
    QString text;
    bool offers_open = false;
};

/// What the window's middle says while there is nothing to preview: what is missing, and what to do next.
/// `unread_document`: the name of the one that could not be read; empty when the last one could.
page_texts texts_of_message(const session_runner& runner, const QString& unread_document);

} // namespace tallyframe::window
