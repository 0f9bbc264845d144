// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/choices.h"

class QSettings;

namespace tallyframe::window {

/// Reads the choices. What is missing, damaged or out of range has its default.
choices load_choices(const QSettings& settings);

/// Keeps what has changed from `before`, the choices as this window read or kept them last, to `now`. All
/// else stays as another window may have written it meanwhile, and lists take the changes of both; its
/// layouts and recent documents come into `now`.
void save_choices(QSettings& settings, const choices& before, choices& now);

} // namespace tallyframe::window
