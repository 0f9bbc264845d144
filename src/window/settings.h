// SPDX-License-Identifier: MIT
#pragma once

#include "window/choices.h"

class QSettings;

namespace tallyframe::window {

/// Reads the choices. What is missing, damaged or out of range has its default.
choices load_choices(const QSettings& settings);

void save_choices(QSettings& settings, const choices& kept);

} // namespace tallyframe::window
