// SPDX-License-Identifier: MIT
#include "analysis/clip_notes.h"

#include "document/text_values.h"

#include <algorithm>
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

template <std::size_t Count>
void read_group(clip_notes& notes, const std::vector<xml_node>& elements,
                const std::array<note, Count>& table)
{
    for (const xml_node element : elements) {
        for (xml_node child = element.first_element(); child; child = child.next_element()) {
            const auto known = std::find_if(table.begin(), table.end(), [child](const note& each) {
                return child.has_name(each.element);
            });
            if (known != table.end() && !(notes.*(known->text)))
                notes.*(known->text) = trimmed(child.text());
        }
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

} // namespace

void inherit_notes(const document_index& index, xml_node clip_item, xml_node masterclipid,
                   note_groups& groups, text_budget& texts)
{
    if (!masterclipid)
        return;
    const std::string id = with_quotes_escaped(masterclipid.text());
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (!groups[i].empty())
            continue;
        if (const xml_node inherited = index.master_clip_group(i, id)) {
            texts.spend(inherited.text());
            groups[i].push_back(clip_item.append_copy(inherited));
        }
    }
}

clip_notes read_notes(const note_groups& groups)
{
    clip_notes notes;
    read_group(notes, groups[logginginfo], logginginfo_notes);
    notes.label = label_of(groups[labels]);
    read_group(notes, groups[filmdata], filmdata_notes);
    read_group(notes, groups[comments], comments_notes);
    return notes;
}

} // namespace tallyframe
