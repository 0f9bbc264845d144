// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"
#include "window/runs/failure_texts.h"

#include <QList>
#include <QString>
#include <QUrl>
#include <optional>

namespace tallyframe::window {

/// What stands against opening a file, where that can be told at once; nothing for one that can be read.
std::optional<alert_texts> obstacle_to_opening(const QString& path);

/// What stands against opening what was dropped on the window; nothing for a single file of this computer.
std::optional<alert_texts> obstacle_to_dropping(const QList<QUrl>& urls);

/// What stands against opening a document that was opened before: it is gone.
std::optional<alert_texts> obstacle_to_reopening(const QString& path);

/// What stands against saving there: it would cost the timeline, which `document` is the path of.
std::optional<alert_texts> obstacle_to_saving(const QString& workbook, const QString& document,
                                              const report_options& options);

} // namespace tallyframe::window
