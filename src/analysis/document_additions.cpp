// SPDX-License-Identifier: MIT
#include "analysis/document_additions.h"

#include "document/text_values.h"

#include <utility>

namespace tallyframe {

namespace {

std::size_t position_of(nesting depth)
{
    return static_cast<std::size_t>(depth);
}

} // namespace

void document_additions::refer_to_nested_files(xml_node sequence, const document_index& index,
                                               text_budget& texts)
{
    bool is_first = true;
    for (const xml_node nested : sequence.all("media/video/track/clipitem/sequence")) {
        const auto id = nested.attribute("id");
        const xml_node file = id ? nested_sequence_file(index, with_quotes_escaped(*id)) : xml_node();
        if (!file)
            continue;
        texts.spend(file.attribute("id")); // each clip that it is given to reads it
        files_before_.try_emplace(nested, file);
        if (std::exchange(is_first, false)) { // the others stand behind it
            take_in(nested, nesting::in_clip_item, sequence, index);
            take_in(nested, nesting::one_sequence_deeper, sequence_of_video_clip_item(sequence.parent()),
                    index);
        }
    }
}

void document_additions::take_in(xml_node nested, nesting depth, xml_node outer, const document_index& index)
{
    const auto id = outer.attribute("id");
    if (!id)
        return;
    auto& first_added = first_added_.at(position_of(depth));
    const auto known = first_added.find(*id);
    const xml_node earliest = known != first_added.end() ? known->second : index.first_file(depth, *id);
    if (!earliest || stands_before(nested, earliest))
        first_added.insert_or_assign(*id, nested);
}

xml_node document_additions::nested_sequence_file(const document_index& index,
                                                  const std::string& sequence_id) const
{
    for (const nesting depth : nestings) {
        const auto& first_added = first_added_.at(position_of(depth));
        if (const auto added = first_added.find(sequence_id); added != first_added.end())
            return file_before(added->second);
        if (const xml_node file = index.first_file(depth, sequence_id))
            return file;
    }
    return {};
}

xml_node document_additions::file_before(xml_node nested_sequence) const
{
    const auto found = files_before_.find(nested_sequence);
    return found == files_before_.end() ? xml_node() : found->second;
}

void document_additions::join_scale(xml_node value, std::string joined)
{
    joined_scales_.insert_or_assign(value, std::move(joined));
}

std::string document_additions::text_of(xml_node value) const
{
    const auto joined = joined_scales_.find(value);
    return joined == joined_scales_.end() ? value.text() : joined->second;
}

} // namespace tallyframe
