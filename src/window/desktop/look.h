// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/choices.h"

namespace tallyframe::window {

/// Gives the whole application light or dark colours. `system` takes those of the desktop; a desktop that
/// gives Qt no palette is asked whether it prefers dark ones.
void apply_appearance(appearance look);

} // namespace tallyframe::window
