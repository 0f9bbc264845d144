// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tallyframe {

/// The front of `text`: as many whole characters as have room in that many bytes.
std::string_view front_in_bytes(std::string_view text, std::size_t bytes);

/// The front of `text`: as many whole characters as have room in that many units of UTF-16.
std::string_view front_in_utf16_units(std::string_view text, std::size_t units);

/// `text` where it has no more than `bytes` of them; of a longer one as many whole characters as fit, and
/// "…".
std::string shortened(std::string_view text, std::size_t bytes);

} // namespace tallyframe
