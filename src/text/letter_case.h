// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tallyframe {

/// ASCII letters in upper case ("True" gives "TRUE").
std::string upper_cased(std::string_view text);

/// A form that texts share which differ in letter case alone, in any alphabet. Throws std::bad_alloc.
std::string case_folded(std::string_view text);

} // namespace tallyframe
