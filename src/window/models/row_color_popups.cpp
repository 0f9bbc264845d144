// SPDX-License-Identifier: MIT
#include "window/models/row_color_popups.h"

#include <QCoreApplication>

namespace tallyframe::window {

namespace {

constexpr color_popup popups[] = {
    {"videoRowColorPopup", &report_options::video_row_color, QT_TRANSLATE_NOOP("color_popup", "Video rows:"),
     QT_TRANSLATE_NOOP("color_popup", "Text color of the rows of video clips and titles")},
    {"audioRowColorPopup", &report_options::audio_row_color, QT_TRANSLATE_NOOP("color_popup", "Audio rows:"),
     QT_TRANSLATE_NOOP("color_popup", "Text color of the rows of audio clips")},
    {"markerRowColorPopup", &report_options::marker_row_color,
     QT_TRANSLATE_NOOP("color_popup", "Marker rows:"),
     QT_TRANSLATE_NOOP("color_popup", "Text color of the rows of markers")},
};

} // namespace

std::span<const color_popup> row_color_popups()
{
    return popups;
}

} // namespace tallyframe::window
