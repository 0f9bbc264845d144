// SPDX-License-Identifier: MIT
#include "document/document_index.h"

#include "run/failures.h"

#include <algorithm>
#include <utility>

namespace tallyframe {

namespace {

// The menu has each identifier of a sequence again, with all that stands inside of it. An id is read once for
// each of the elements that it concerns.
constexpr std::size_t uuids_limit = 100'000'000; ///< bytes
constexpr std::size_t ids_limit = 1'000'000'000; ///< bytes

void take_of(std::size_t& used, std::size_t size, std::size_t limit)
{
    used += size;
    if (used > limit)
        throw load_error(
            "The document has identifiers (id, uuid) of such length that they cannot be looked up in "
            "it. Please export it again.");
}

bool is_inside(xml_node node, xml_node outer)
{
    while (node && node != outer)
        node = node.parent();
    return static_cast<bool>(node);
}

} // namespace

document_index::document_index(const xml_document& document, progress& display)
{
    constexpr std::uint32_t nodes_between_looks = 1000; // at whether the run is still wanted
    const compact_document& content = document.content();
    const std::vector<concern> concerns = concerns_of(content.plain_names);
    for (std::uint32_t node = 0; node < content.node_count(); ++node) {
        if (node % nodes_between_looks == 0)
            display.leave_if_cancelled();
        const node_record& record = content.nodes[node];
        if (record.kind == node_kind::element && concerns[record.name] != concern::nothing)
            take_in({content, node}, concerns[record.name]);
    }
}

std::vector<document_index::concern>
document_index::concerns_of(const std::vector<std::string_view>& plain_names)
{
    static const std::unordered_map<std::string_view, concern> by_name = {
        {"clip", concern::clip},         {"file", concern::file}, {"media", concern::media},
        {"sequence", concern::sequence}, {"uuid", concern::uuid}, {"updatebehavior", concern::updatebehavior},
    };
    std::vector<concern> concerns;
    concerns.reserve(plain_names.size());
    for (const std::string_view name : plain_names) {
        const auto known = by_name.find(name);
        concerns.push_back(known != by_name.end()                                ? known->second
                               : std::ranges::count(inherited_groups, name) != 0 ? concern::group
                                                                                 : concern::nothing);
    }
    return concerns;
}

void document_index::take_in(xml_node element, concern its_concern)
{
    switch (its_concern) {
    case concern::clip:
        has_bin_clips = has_bin_clips || element.parent().has_name("children");
        break;
    case concern::file:
        take_in_file(element);
        break;
    case concern::group:
        take_in_group(element);
        break;
    case concern::media:
        if (element.parent().has_name("clip") && element.parent().parent().has_name("children"))
            bin_clip_media.push_back(element);
        break;
    case concern::sequence: // one without elements only repeats the id of another
        if (!element.child("uuid") && element.first_element())
            unidentified_sequences.push_back(element);
        break;
    case concern::uuid:
        if (element.parent().has_name("sequence"))
            take_in_uuid(element);
        break;
    case concern::updatebehavior:
        has_updatebehavior = true;
        break;
    case concern::nothing:
        break;
    }
}

void document_index::take_in_uuid(xml_node uuid)
{
    sequence_uuids.push_back(uuid);
    const xml_node sequence = uuid.parent();
    std::string identifier = uuid.text();
    take_of(uuids_size_, identifier.size(), uuids_limit);
    const auto [known, is_new] = sequences_by_uuid_.try_emplace(std::move(identifier), sequence);
    // A sequence may carry its uuid behind the nested sequences that it holds: it begins before them.
    if (!is_new && is_inside(known->second, sequence))
        known->second = sequence;
}

void document_index::take_in_group(xml_node group)
{
    if (!group.parent().has_name("clip"))
        return;
    const auto* const name = std::ranges::find(inherited_groups, group.name());
    if (auto id = id_of(group.parent()))
        master_clip_groups_[static_cast<std::size_t>(name - inherited_groups.begin())].try_emplace(
            std::move(*id), group);
}

void document_index::take_in_file(xml_node file)
{
    files.push_back(file);
    xml_node sequence = sequence_of_video_clip_item(file.parent());
    for (first_by_id& first_files : first_files_) {
        if (auto id = id_of(sequence))
            first_files.try_emplace(std::move(*id), file);
        sequence = sequence_of_video_clip_item(sequence.parent());
    }
}

std::optional<std::string> document_index::id_of(xml_node element)
{
    std::optional<std::string> id = element.attribute("id");
    if (id)
        take_of(ids_size_, id->size(), ids_limit);
    return id;
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

xml_node document_index::first_file(nesting depth, std::string_view sequence_id) const
{
    const first_by_id& first_files = first_files_.at(static_cast<std::size_t>(depth));
    const auto found = first_files.find(std::string(sequence_id));
    return found == first_files.end() ? xml_node() : found->second;
}

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

} // namespace tallyframe
