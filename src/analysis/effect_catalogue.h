// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tallyframe {

/// Whether the effect id is one of the editing system's built-in filters. Letter case counts.
bool is_apple_filter(std::string_view effectid);

/// Whether the text (category, " ▸ ", name; or a bare name) is one of the built-in transitions.
bool is_apple_transition(std::string_view name);

} // namespace tallyframe
