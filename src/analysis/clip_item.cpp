// SPDX-License-Identifier: MIT
#include "analysis/clip_item.h"

#include "analysis/clip_notes.h"
#include "analysis/frame_numbers.h"
#include "document/text_values.h"
#include "text/letter_case.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace tallyframe {

namespace {

constexpr std::string_view rule = "\n-----------------------------------------------\n";

/// The children that matter, found in one pass: a clip item can hold thousands of filters and markers. Of the
/// single ones the first counts.
struct clip_item_children {
    xml_node name, enabled, file, masterclipid, start, end, in, out, duration;
    note_groups notes;
    std::vector<xml_node> filters, markers, subclipinfos;
};

struct single_child {
    std::string_view element;
    xml_node clip_item_children::*first;
};

struct repeated_child {
    std::string_view element;
    std::vector<xml_node> clip_item_children::*all;
};

constexpr std::array single_children = {
    single_child{"name", &clip_item_children::name},
    single_child{"enabled", &clip_item_children::enabled},
    single_child{"file", &clip_item_children::file},
    single_child{"masterclipid", &clip_item_children::masterclipid},
    single_child{"start", &clip_item_children::start},
    single_child{"end", &clip_item_children::end},
    single_child{"in", &clip_item_children::in},
    single_child{"out", &clip_item_children::out},
    single_child{"duration", &clip_item_children::duration},
};

constexpr std::array repeated_children = {
    repeated_child{"filter", &clip_item_children::filters},
    repeated_child{"marker", &clip_item_children::markers},
    repeated_child{"subclipinfo", &clip_item_children::subclipinfos},
};

clip_item_children children_of(xml_node element, const document_additions& additions)
{
    clip_item_children children;
    for (const xml_node child : element.children()) {
        const std::string_view name = child.name();
        if (!child.has_name(name)) // of a foreign namespace
            continue;
        for (const repeated_child& known : repeated_children) {
            if (name == known.element)
                (children.*known.all).push_back(child);
        }
        for (const single_child& known : single_children) {
            if (name == known.element && !(children.*known.first))
                children.*known.first = child;
        }
        if (name == "sequence" && !children.file)
            children.file = additions.file_before(child);
        for (std::size_t i = 0; i < inherited_groups.size(); ++i) {
            if (name == inherited_groups[i])
                children.notes[i].push_back(child);
        }
    }
    return children;
}

void report_start(const analysis_walk& walk, const track_context& track, xml_node element,
                  std::size_t item_number)
{
    const std::string track_title = "Track " + track.label;
    walk.display.advance("Analyzing Clips in "
                         + (walk.result.is_sequence ? track_title : track.bin.value_or("")) + "\n");
    walk.out.write(fmt::format("{} Analyzing Clips in {} - working on item {} {}\n", rule, track_title,
                               item_number, element.name()));
}

clip_positions positions_in_sequence(const track_context& track, xml_node element,
                                     const clip_item_children& children)
{
    const auto number = [&](xml_node own, std::string_view name) {
        return frame_number(own ? own.text() : required_text(track, element, name));
    };
    clip_positions positions;
    positions.start =
        position_or_neighbour(number(children.start, "start"), element.previous_element(), "start")
            .value_or(-1);
    positions.end =
        position_or_neighbour(number(children.end, "end"), element.next_element(), "end").value_or(-1);
    positions.in = number(children.in, "in");
    positions.out = number(children.out, "out");
    positions.duration = number(children.duration, "duration");

    const std::int64_t length = positions.out - positions.in;
    if (positions.start == -1)
        positions.start = positions.end - length;
    else if (positions.end == -1)
        positions.end = positions.start + length;
    return positions;
}

/// A clip of a bin stands nowhere: it counts as one frame at 0 and uses all of its media.
clip_positions positions_in_bin(const track_context& track)
{
    clip_positions positions;
    positions.end = 1;
    positions.out = frame_number(required_text(track, track.bin_clip, "duration"));
    return positions;
}

std::int64_t start_offset_of(const std::vector<xml_node>& subclipinfos)
{
    for (const xml_node subclipinfo : subclipinfos) {
        if (const auto offset = subclipinfo.text_of("startoffset"))
            return frame_number(*offset);
    }
    return 0;
}

std::vector<clip_effect> effects_of(const std::vector<xml_node>& filters)
{
    std::vector<clip_effect> effects;
    effects.reserve(filters.size());
    for (const xml_node filter : filters) {
        for (const xml_node child : filter.children()) {
            if (child.has_name("effect"))
                effects.push_back({filter, child});
        }
    }
    return effects;
}

} // namespace

clip_item read_clip_item(analysis_walk& walk, const track_context& track, xml_node element,
                         std::size_t item_number)
{
    report_start(walk, track, element, item_number);

    clip_item_children children = children_of(element, walk.additions);
    clip_item clip;
    clip.element = element;
    if (children.name)
        clip.name = shown_name(children.name.text(), walk.result.figures);
    if (children.file)
        clip.file_id = children.file.attribute("id").value_or("");
    clip.positions =
        walk.result.is_sequence ? positions_in_sequence(track, element, children) : positions_in_bin(track);
    clip.positions.start_offset = start_offset_of(children.subclipinfos);
    clip.enabled = track.enabled == "FALSE" ? track.enabled
        : children.enabled                  ? upper_cased(children.enabled.text())
                                            : "TRUE";
    clip.notes = read_notes(children.notes, children.masterclipid, walk.index, walk.texts, walk.master_notes);
    clip.effects = effects_of(children.filters);
    clip.markers = std::move(children.markers);
    return clip;
}

} // namespace tallyframe
