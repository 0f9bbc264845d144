// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe::window {

/// Title of the layout that comes first in layoutsAppPopupMenu and cannot be changed. No saved one has it.
inline constexpr std::string_view default_layout_name = "Default";

/// The check boxes of the default layout, all 25 of them.
std::vector<column_layout::checkbox> default_checkboxes();

/// Whether a check box of the layout is on; a title that it does not list is off.
bool is_on(const column_layout& layout, std::string_view title);
void set_on(column_layout& layout, std::string_view title, bool on);

/// A name without the blanks at its ends.
std::string trimmed_name(std::string_view name);

enum class name_fault { none, empty, taken };

/// What stands against a name for the layout at `position`; one beyond the list stands for a new layout.
/// Letter case is ignored: two names that differ in nothing else would be taken for each other.
name_fault check_name(std::string_view name, const std::vector<column_layout>& layouts, std::size_t position);

/// `wanted`, or with the first number from 2 behind it that makes it a name of its own.
std::string free_name(std::string_view wanted, const std::vector<column_layout>& layouts);

/// Leaves out what no menu can offer: layouts without a name, with the default's name, or with a name that
/// stands before them.
std::vector<column_layout> usable_layouts(std::vector<column_layout> layouts);

/// Position of the layout with that name; the list's size when there is none.
std::size_t find_layout(std::string_view name, const std::vector<column_layout>& layouts);

} // namespace tallyframe::window
