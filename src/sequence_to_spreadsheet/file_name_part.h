// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tallyframe {

/// The title with all that no file name may hold, on any system, replaced; at most 100 characters.
std::string file_name_part(std::string_view title);

} // namespace tallyframe
