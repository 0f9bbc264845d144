// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// The effect ids of the editing system's built-in filters, each once.
std::vector<std::string> apple_filter_effectids();

/// The built-in transitions as a timeline shows them, each once.
std::vector<std::string> apple_transitions();

/// Whether the effect id is one of the built-in filters. Letter case counts.
bool is_apple_filter(std::string_view effectid);

/// Whether the text (category, " ▸ ", name; or a bare name) is one of the built-in transitions.
bool is_apple_transition(std::string_view name);

} // namespace tallyframe
