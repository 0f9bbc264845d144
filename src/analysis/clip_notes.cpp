// SPDX-License-Identifier: MIT
#include "analysis/clip_notes.h"

#include "document/text_values.h"
#include "text/trimmed.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace tallyframe {

namespace {

struct note {
    std::string_view element;
    std::optional<std::string> clip_notes::*text;
};

constexpr std::array logginginfo_notes = {
    note{"description", &clip_notes::description}, note{"scene", &clip_notes::scene},
    note{"shottake", &clip_notes::shottake},       note{"lognote", &clip_notes::lognote},
    note{"scenenote", &clip_notes::scenenote},     note{"shotnote", &clip_notes::shotnote},
    note{"takenote", &clip_notes::takenote},
};
constexpr std::array filmdata_notes = {
    note{"cameraroll", &clip_notes::cameraroll},
    note{"dailyroll", &clip_notes::dailyroll},
    note{"labroll", &clip_notes::labroll},
};
constexpr std::array comments_notes = {
    note{"mastercomment1", &clip_notes::mastercomment1}, note{"mastercomment2", &clip_notes::mastercomment2},
    note{"mastercomment3", &clip_notes::mastercomment3}, note{"mastercomment4", &clip_notes::mastercomment4},
    note{"clipcommenta", &clip_notes::clipcommenta},     note{"clipcommentb", &clip_notes::clipcommentb},
};

// The order of inherited_groups.
enum group : std::size_t { logginginfo, labels, filmdata, comments };

/// The notes of a group; none for the labels, which make one note together.
std::span<const note> notes_of(std::size_t group)
{
    switch (group) {
    case logginginfo:
        return logginginfo_notes;
    case filmdata:
        return filmdata_notes;
    case comments:
        return comments_notes;
    default:
        return {};
    }
}

xml_node first_child(const std::vector<xml_node>& elements, std::string_view name)
{
    for (const xml_node element : elements) {
        if (const xml_node child = element.child(name))
            return child;
    }
    return {};
}

std::string label_of(const std::vector<xml_node>& elements)
{
    for (const std::string_view name : {"label", "label2"}) {
        if (const xml_node label = first_child(elements, name))
            return std::string(trimmed(label.text()));
    }
    return "None";
}

void read_group(clip_notes& notes, std::size_t group, const std::vector<xml_node>& elements)
{
    if (group == labels)
        notes.label = label_of(elements);
    const std::span<const note> table = notes_of(group);
    for (const xml_node element : elements) {
        for (const xml_node child : element.children()) {
            const auto known = std::ranges::find_if(
                table, [child](const note& each) { return child.has_name(each.element); });
            if (known != table.end() && !(notes.*(known->text)))
                notes.*(known->text) = trimmed(child.text());
        }
    }
}

void take_group(clip_notes& notes, std::size_t group, const clip_notes& other, text_budget& texts)
{
    const auto take = [&](std::optional<std::string> clip_notes::*text) {
        texts.spend(other.*text);
        notes.*text = other.*text;
    };
    if (group == labels)
        take(&clip_notes::label);
    for (const note& each : notes_of(group))
        take(each.text);
}

} // namespace

clip_notes read_notes(const note_groups& groups, xml_node masterclipid, const document_index& index,
                      text_budget& texts, master_clip_notes& known)
{
    const std::string id = with_quotes_escaped(masterclipid.text());
    clip_notes notes;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const xml_node inherited =
            groups[i].empty() && masterclipid ? index.master_clip_group(i, id) : xml_node();
        if (!inherited) {
            read_group(notes, i, groups[i]);
            continue;
        }
        const auto [entry, is_new] = known.try_emplace(inherited);
        if (is_new)
            read_group(entry->second, i, {inherited});
        take_group(notes, i, entry->second, texts);
    }
    return notes;
}

} // namespace tallyframe
