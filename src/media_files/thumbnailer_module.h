// SPDX-License-Identifier: MIT
#pragma once

#include "platform/thumbnailer.h"
#include "run/diagnostics.h"

#include <memory>

namespace tallyframe {

/// The thumbnailer of the module that makes pictures. `out` is told which files were given up and must
/// outlive it. Throws failure when the module is not there or does not fit.
std::unique_ptr<thumbnailer> load_thumbnailer(diagnostics& out);

} // namespace tallyframe
