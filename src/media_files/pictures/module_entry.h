// SPDX-License-Identifier: MIT
#pragma once

#include "platform/thumbnailer.h"
#include "run/diagnostics.h"

namespace tallyframe {

/// What the module that makes pictures is asked for by name: a new thumbnailer, which the caller owns.
/// `resources`: the folder with the placeholders.
using new_thumbnailer_function = thumbnailer*(const char* resources, diagnostics& out);
inline constexpr const char* new_thumbnailer_name = "tallyframe_new_thumbnailer";

} // namespace tallyframe

extern "C" tallyframe::new_thumbnailer_function tallyframe_new_thumbnailer;
