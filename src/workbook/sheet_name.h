// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace xls {

/// The text that two sheet names share when Excel takes them for the same (letter case ignored). Throws
/// workbook_error for a name that Excel refuses.
std::string sheet_name_key(std::string_view name);

} // namespace xls
