// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// The four groups of notes that a clip item takes from its master clip when it has none of its own.
inline constexpr std::array<std::string_view, 4> inherited_groups = {"logginginfo", "labels", "filmdata",
                                                                     "comments"};

/// What the catalogue and the analysis ask of a whole document, gathered in one walk over it.
///
/// Each answer is that of the query in its comment at the time of the walk; "first" means first in document
/// order.
class document_index {
public:
    explicit document_index(const xml_document& document);

    std::vector<xml_node> files; ///< //file
    std::vector<xml_node> bin_clip_media; ///< //children/clip/media
    std::vector<xml_node> sequence_uuids; ///< //sequence/uuid
    bool has_bin_clips = false; ///< //children/clip
    bool has_updatebehavior = false; ///< //updatebehavior

    /// First //sequence[uuid="…"].
    xml_node sequence_with_uuid(std::string_view uuid) const;

    /// First //clip[@id="…"]/GROUP, where GROUP is inherited_groups[group].
    xml_node master_clip_group(std::size_t group, std::string_view master_clip_id) const;

    /// First //sequence[@id="…"]/media/video/track/clipitem/file, or failing that the first one a nested
    /// sequence deeper (…/clipitem/sequence/media/video/track/clipitem/file).
    xml_node nested_sequence_file(std::string_view sequence_id) const;

    /// Tells the index of a `file` that a clip item has got since, so that later answers of
    /// nested_sequence_file see it. They are told of in document order; `files` stays as it was.
    void add_file_of_clip_item(xml_node file);

private:
    struct first_file {
        xml_node file;
        bool is_settled = false; ///< no file that is added later can come before it
    };
    using first_by_id = std::unordered_map<std::string, xml_node>;
    using first_file_by_id = std::unordered_map<std::string, first_file>;

    void take_in(xml_node element);
    void take_in_uuid(xml_node uuid);
    void take_in_group(xml_node group);
    void take_in_file(xml_node file);

    /// Calls `visit` with each of the two maps below that the place of `file` concerns, and the id there.
    template <class Visit>
    void for_each_nesting(xml_node file, const Visit& visit);

    first_by_id sequences_by_uuid_;
    std::array<first_by_id, inherited_groups.size()> master_clip_groups_;
    first_file_by_id files_in_sequence_;
    first_file_by_id files_one_sequence_deeper_;
};

} // namespace tallyframe
