// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <string_view>

namespace tallyframe::window {

/// The colour that the workbook has for a name or "#RRGGBB"; an invalid one for a text that it does not know.
QColor row_color(std::string_view name);

/// How far two colours stand apart, from 1 to 21, as the Web Content Accessibility Guidelines count it.
double contrast(const QColor& one, const QColor& other);

/// What the guidelines ask for text of a usual size.
inline constexpr double readable_contrast = 4.5;

/// The colour itself on a light background. On a dark one the workbook's colours, which are meant for white
/// paper, may not stand out: then as much lighter as it takes to read it, in the same hue.
QColor readable_on(const QColor& background, const QColor& color);

} // namespace tallyframe::window
