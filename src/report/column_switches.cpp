// SPDX-License-Identifier: MIT
#include "report/column_switches.h"

#include "run/failures.h"

#include <algorithm>

namespace tallyframe {

namespace {

const column_layout& find_layout(const report_options& options)
{
    const auto found =
        std::find_if(options.layouts_array.begin(), options.layouts_array.end(),
                     [&](const column_layout& layout) { return layout.name == *options.layout; });
    if (found == options.layouts_array.end())
        throw failure("There is no column layout named \"" + *options.layout + "\". Choose another layout.");
    return *found;
}

bool is_on_in(const column_layout& layout, std::string_view title)
{
    const auto found =
        std::find_if(layout.checkboxes.begin(), layout.checkboxes.end(),
                     [&](const column_layout::checkbox& checkbox) { return checkbox.title == title; });
    return found != layout.checkboxes.end() && found->state != 0; // a mixed state counts as on
}

} // namespace

column_switches chosen_columns(const report_options& options, bool is_sequence)
{
    const column_layout* layout = options.layout ? &find_layout(options) : nullptr;
    column_switches switches;
    for (const column_switch_entry& entry : all_column_switches) {
        const bool wanted = layout ? is_on_in(*layout, entry.title) : entry.on_by_default;
        switches.set(entry.which, wanted && (is_sequence || !entry.off_for_bins));
    }
    if (!options.audio_tags)
        switches.set(column_switch::id3_metadata, false);
    return switches;
}

} // namespace tallyframe
