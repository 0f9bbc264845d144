// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tallyframe {

/// The names of colours that rows can have, in alphabetical order.
const std::vector<std::string_view>& color_names();

/// The colour of a name, or of "#RRGGBB", as 0xRRGGBB; nothing for any other text.
std::optional<std::uint32_t> color_value(std::string_view text);

} // namespace tallyframe
