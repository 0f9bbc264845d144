// SPDX-License-Identifier: MIT
#pragma once

namespace tallyframe::window {

/// How long a test waits for what has to come, in milliseconds: the sanitizers are slow.
inline constexpr int patience = 30000;

} // namespace tallyframe::window
