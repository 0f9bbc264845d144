// SPDX-License-Identifier: MIT
#include "document/document_index.h"

#include <algorithm>

namespace tallyframe {

namespace {

/// The sequence whose media/video/track/clipitem is `clip_item`, or none.
xml_node sequence_of_video_clip_item(xml_node clip_item)
{
    constexpr std::array<std::string_view, 4> way_up = {"clipitem", "track", "video", "media"};
    xml_node node = clip_item;
    for (const std::string_view name : way_up) {
        if (!node.has_name(name))
            return {};
        node = node.parent();
    }
    return node.has_name("sequence") ? node : xml_node();
}

bool is_inside(xml_node node, xml_node outer)
{
    while (node && node != outer)
        node = node.parent();
    return static_cast<bool>(node);
}

} // namespace

document_index::document_index(const xml_document& document)
{
    const xml_node root = document.root();
    for (xml_node element = root; element; element = next_in_document(element, root))
        take_in(element);
}

void document_index::take_in(xml_node element)
{
    switch (element.name().front()) { // most elements leave here
    case 'c':
        if (element.has_name("clip"))
            has_bin_clips = has_bin_clips || element.parent().has_name("children");
        else
            take_in_group(element);
        break;
    case 'f':
        if (element.has_name("file"))
            take_in_file(element);
        else
            take_in_group(element);
        break;
    case 'l':
        take_in_group(element);
        break;
    case 'm':
        if (element.has_name("media") && element.parent().has_name("clip")
            && element.parent().parent().has_name("children"))
            bin_clip_media.push_back(element);
        break;
    case 'u':
        if (element.has_name("uuid") && element.parent().has_name("sequence"))
            take_in_uuid(element);
        else if (element.has_name("updatebehavior"))
            has_updatebehavior = true;
        break;
    default:
        break;
    }
}

void document_index::take_in_uuid(xml_node uuid)
{
    sequence_uuids.push_back(uuid);
    const xml_node sequence = uuid.parent();
    const auto [known, is_new] = sequences_by_uuid_.try_emplace(uuid.text(), sequence);
    // A sequence may carry its uuid behind the nested sequences that it holds: it begins before them.
    if (!is_new && is_inside(known->second, sequence))
        known->second = sequence;
}

void document_index::take_in_group(xml_node group)
{
    const auto* const name =
        std::find_if(inherited_groups.begin(), inherited_groups.end(),
                     [&](std::string_view candidate) { return group.has_name(candidate); });
    if (name == inherited_groups.end() || !group.parent().has_name("clip"))
        return;
    if (auto id = group.parent().attribute("id"))
        master_clip_groups_[static_cast<std::size_t>(name - inherited_groups.begin())].try_emplace(
            std::move(*id), group);
}

void document_index::take_in_file(xml_node file)
{
    files.push_back(file);
    for_each_nesting(file, [&](first_file_by_id& first_files, std::string id) {
        first_files.try_emplace(std::move(id), first_file{file});
    });
}

void document_index::add_file_of_clip_item(xml_node file)
{
    for_each_nesting(file, [&](first_file_by_id& first_files, std::string id) {
        const auto [known, is_new] = first_files.try_emplace(std::move(id), first_file{file});
        // They come in document order, so that only the first of them can stand before what is known.
        if (!is_new && !known->second.is_settled && stands_before(file, known->second.file))
            known->second.file = file;
        known->second.is_settled = true;
    });
}

template <class Visit>
void document_index::for_each_nesting(xml_node file, const Visit& visit)
{
    const xml_node sequence = sequence_of_video_clip_item(file.parent());
    if (auto id = sequence.attribute("id"))
        visit(files_in_sequence_, std::move(*id));
    if (auto id = sequence_of_video_clip_item(sequence.parent()).attribute("id"))
        visit(files_one_sequence_deeper_, std::move(*id));
}

xml_node document_index::sequence_with_uuid(std::string_view uuid) const
{
    const auto found = sequences_by_uuid_.find(std::string(uuid));
    return found == sequences_by_uuid_.end() ? xml_node() : found->second;
}

xml_node document_index::master_clip_group(std::size_t group, std::string_view master_clip_id) const
{
    const first_by_id& first_groups = master_clip_groups_.at(group);
    const auto found = first_groups.find(std::string(master_clip_id));
    return found == first_groups.end() ? xml_node() : found->second;
}

xml_node document_index::nested_sequence_file(std::string_view sequence_id) const
{
    for (const first_file_by_id* first_files : {&files_in_sequence_, &files_one_sequence_deeper_}) {
        const auto found = first_files->find(std::string(sequence_id));
        if (found != first_files->end())
            return found->second.file;
    }
    return {};
}

} // namespace tallyframe
