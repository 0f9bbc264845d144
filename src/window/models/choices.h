// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/report_scope.h"
#include "report/report_options.h"
#include "run/figure_style.h"
#include "window/models/media_places.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace tallyframe::window {

enum class appearance { system, light, dark };

/// What the user has chosen, and finds again at the next start.
struct choices {
    report_scope scope = report_scope::video_audio;
    figure_style figures = figure_style::comparable;
    report_options options; ///< with the saved layouts
    std::vector<media_place> media_places; ///< where media is looked for
    appearance look = appearance::system;
    QStringList recent_documents; ///< the latest first
    QString save_folder; ///< of the last workbook; empty before the first
};

inline constexpr qsizetype recent_document_limit = 10;

/// The widths of in-point pictures that the window offers, in pixels; any other can be typed.
inline constexpr int thumbnail_widths[] = {160, 320, 640};

/// Puts a document at the head of the recent ones.
void remember_document(choices& kept, const QString& path);

} // namespace tallyframe::window
