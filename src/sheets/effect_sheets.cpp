// SPDX-License-Identifier: MIT
#include "sheets/effect_sheets.h"

#include "report/shared_rows.h"
#include "report/time_cells.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tallyframe {

namespace {

template <class Record>
cell_value sequence_in(const Record& item, const row_context& row)
{
    return sequence_timecode(item.place.seq_start_frame, row.clock);
}

template <class Record>
cell_value sequence_out(const Record& item, const row_context& row)
{
    return sequence_timecode(item.place.seq_end_frame, row.clock);
}

template <class Record>
cell_value duration(const Record& item, const row_context& row)
{
    return sequence_timecode(std::optional(supplementary_duration(item.place, row.clock.figures)), row.clock);
}

cell_value check_mark_or_no_cell(const filter_record& filter, const row_context&)
{
    if (filter.enabled != "TRUE")
        return {};
    return std::string_view("✓");
}

constexpr fixed_column<transition_record> transition_columns[] = {
    {"Track", 5, true, track_and_name},
    {"Transition", 10, true, field_text<&transition_record::name>},
    {"Sequence In", 11, false, sequence_in},
    {"Sequence Out", 12, false, sequence_out},
    {"Duration", timecode_width, false, duration},
};

constexpr fixed_column<filter_record> filter_columns[] = {
    {"Track", 5, true, track_and_name},
    {"Filter", 6, true, field_text<&filter_record::name>},
    {"Enabled", 7, false, check_mark_or_no_cell, cell_kind::centered},
    {"Clip Name", 9, true, field_text<&filter_record::clip_name>},
    {"Sequence In", 11, false, sequence_in},
    {"Sequence Out", 12, false, sequence_out},
    {"Duration", timecode_width, false, duration},
};

constexpr fixed_column<motion_record> motion_columns[] = {
    {"Track", 5, true, track_and_name},
    {"Motion", 6, true, field_text<&motion_record::name>},
    {"Clip Name", 9, true, field_text<&motion_record::clip_name>},
    {"Sequence In", 11, false, sequence_in},
    {"Sequence Out", 12, false, sequence_out},
    {"Duration", timecode_width, false, duration},
};

/// An effect as the catalogues tell them apart.
struct distinct_effect {
    std::string_view name;
    std::string_view track_letter; ///< empty where the kind of track does not matter

    bool operator<(const distinct_effect& other) const
    {
        return std::pair(name, track_letter) < std::pair(other.name, other.track_letter);
    }
};

/// The distinct ones sorted by name; equal names keep the order of their first use.
std::vector<distinct_effect> distinct_by_name(const std::vector<distinct_effect>& uses)
{
    std::set<distinct_effect> seen;
    std::vector<distinct_effect> distinct;
    for (const distinct_effect& use : uses) {
        if (seen.insert(use).second)
            distinct.push_back(use);
    }
    std::stable_sort(
        distinct.begin(), distinct.end(),
        [](const distinct_effect& left, const distinct_effect& right) { return left.name < right.name; });
    return distinct;
}

/// The built-in effects in the colours of their tracks, and those of other makers in red.
template <class Record>
std::vector<catalogue> catalogues_of(const std::vector<const Record*>& records,
                                     std::string_view built_in_title, std::string_view third_party_title)
{
    std::vector<distinct_effect> built_in;
    std::vector<distinct_effect> third_party;
    for (const Record* record : records) {
        if (record->apple)
            built_in.push_back({record->name, text_of(record->place.track).substr(0, 1)});
        else
            third_party.push_back({record->name, {}});
    }
    catalogue own{built_in_title, {}};
    for (const distinct_effect& effect : distinct_by_name(built_in))
        own.entries.push_back(
            {effect.name, effect.track_letter == "V" ? text_color::video : text_color::audio});
    catalogue others{third_party_title, {}};
    for (const distinct_effect& effect : distinct_by_name(third_party))
        others.entries.push_back({effect.name, text_color::red});
    return {own, others};
}

/// A row of exact figures: in the colour of its own track, or red.
template <class Record>
row_look own_look_of(const Record& effect)
{
    const text_color of_track = is_audio(effect.place) ? text_color::audio : text_color::video;
    const text_color color = effect.apple ? of_track : text_color::red;
    return {color, color};
}

/// The look of each row. A built-in effect on a video track keeps that of the row before it.
template <class Record>
std::vector<row_look> looks_of_effects(const std::vector<const Record*>& effects, figure_style figures,
                                       row_look& running)
{
    std::vector<row_look> looks;
    looks.reserve(effects.size());
    for (const Record* effect : effects) {
        if (figures == figure_style::exact) {
            looks.push_back(own_look_of(*effect));
            continue;
        }
        if (!effect->apple)
            running.text = text_color::red;
        else if (is_audio(effect->place))
            running.text = text_color::audio;
        looks.push_back(running);
    }
    return looks;
}

template <class Record>
void add_effect_sheet(const report_frame& frame, growing_report& report, table_sheet<Record> table)
{
    table.looks = looks_of_effects(table.records, frame.analysis.figures, report.running_look);
    report.add(sheet_of(std::move(table), frame.clock));
}

} // namespace

void add_transitions_sheet(const report_frame& frame, growing_report& report)
{
    const auto& transitions = frame.rows.transitions;
    add_effect_sheet<transition_record>(
        frame, report,
        {.name = std::string(transitions_name),
         .columns = columns_of(transition_columns),
         .records = transitions,
         .looks = {},
         .catalogues = catalogues_of(transitions, "Built-in Transitions", "Third-Party Transitions")});
}

void add_filters_sheet(const report_frame& frame, growing_report& report)
{
    const auto& filters = frame.rows.filters;
    add_effect_sheet<filter_record>(
        frame, report,
        {.name = std::string(filters_name),
         .columns = columns_of(filter_columns),
         .records = filters,
         .looks = {},
         .catalogues = catalogues_of(filters, "Built-in Filters", "Third-Party Filters")});
}

void add_motion_sheet(const report_frame& frame, growing_report& report)
{
    catalogue applied{"Motion Applied", {}};
    std::set<std::string_view> names;
    for (const motion_record* motion : frame.rows.motion)
        names.insert(motion->name);
    for (const std::string_view name : names)
        applied.entries.push_back({name, text_color::video});

    if (!frame.rows.motion.empty())
        report.running_look.text = text_color::video;
    report.add(sheet_of<motion_record>({.name = std::string(motion_effects_name),
                                        .columns = columns_of(motion_columns),
                                        .records = frame.rows.motion,
                                        .looks = {report.running_look},
                                        .catalogues = {applied}},
                                       frame.clock));
}

} // namespace tallyframe
