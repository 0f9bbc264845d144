// SPDX-License-Identifier: MIT
#include "window/models/saved_layouts.h"

#include "report/column_switches.h"
#include "text/letter_case.h"

#include <QString>
#include <algorithm>
#include <utility>

namespace tallyframe::window {

namespace {

bool same_name(std::string_view one, std::string_view other)
{
    return case_folded(one) == case_folded(other);
}

bool is_taken(std::string_view name, const std::vector<column_layout>& layouts, std::size_t except)
{
    if (same_name(name, default_layout_name))
        return true;
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        if (i != except && same_name(name, layouts[i].name))
            return true;
    }
    return false;
}

} // namespace

std::vector<column_layout::checkbox> default_checkboxes()
{
    std::vector<column_layout::checkbox> checkboxes;
    checkboxes.reserve(all_column_switches.size());
    for (const column_switch_entry& entry : all_column_switches)
        checkboxes.push_back({std::string(entry.title), entry.on_by_default ? 1 : 0});
    return checkboxes;
}

bool is_on(const column_layout& layout, std::string_view title)
{
    const auto found = std::ranges::find(layout.checkboxes, title, &column_layout::checkbox::title);
    return found != layout.checkboxes.end() && found->state != 0;
}

void set_on(column_layout& layout, std::string_view title, bool on)
{
    const auto found = std::ranges::find(layout.checkboxes, title, &column_layout::checkbox::title);
    if (found != layout.checkboxes.end())
        found->state = on ? 1 : 0;
    else
        layout.checkboxes.push_back({std::string(title), on ? 1 : 0});
}

std::string trimmed_name(std::string_view name)
{
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).trimmed().toStdString();
}

name_fault check_name(std::string_view name, const std::vector<column_layout>& layouts, std::size_t position)
{
    const std::string trimmed = trimmed_name(name);
    if (trimmed.empty())
        return name_fault::empty;
    return is_taken(trimmed, layouts, position) ? name_fault::taken : name_fault::none;
}

std::string free_name(std::string_view wanted, const std::vector<column_layout>& layouts)
{
    std::string name(wanted);
    for (int number = 2; is_taken(name, layouts, layouts.size()); ++number)
        name = std::string(wanted) + " " + std::to_string(number);
    return name;
}

std::vector<column_layout> usable_layouts(std::vector<column_layout> layouts)
{
    std::vector<column_layout> usable;
    for (column_layout& layout : layouts) {
        layout.name = trimmed_name(layout.name);
        if (check_name(layout.name, usable, usable.size()) == name_fault::none)
            usable.push_back(std::move(layout));
    }
    return usable;
}

std::size_t find_layout(std::string_view name, const std::vector<column_layout>& layouts)
{
    const auto found = std::ranges::find(layouts, name, &column_layout::name);
    return static_cast<std::size_t>(found - layouts.begin());
}

} // namespace tallyframe::window
