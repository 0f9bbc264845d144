// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"
#include "run/progress.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// The four groups of notes that a clip item takes from its master clip when it has none of its own.
inline constexpr std::array<std::string_view, 4> inherited_groups = {"logginginfo", "labels", "filmdata",
                                                                     "comments"};

/// Where the files of a sequence's video clips are looked for: media/video/track/clipitem/file, or the same
/// inside of the sequences that its video clips are (media/video/track/clipitem/sequence/…).
enum class nesting : std::size_t { in_clip_item, one_sequence_deeper };
inline constexpr std::array nestings = {nesting::in_clip_item, nesting::one_sequence_deeper};

/// What the catalogue and the analysis ask of a whole document, gathered in one walk over it.
///
/// Each answer is that of the query in its comment at the time of the walk; "first" means first in document
/// order.
///
/// Throws load_error when its identifiers are so long that gathering them would take minutes or gigabytes.
class document_index {
public:
    document_index(const xml_document& document, progress& display);

    std::vector<xml_node> files; ///< //file
    std::vector<xml_node> bin_clip_media; ///< //children/clip/media
    std::vector<xml_node> sequence_uuids; ///< //sequence/uuid
    std::vector<xml_node> unidentified_sequences; ///< //sequence[*][not(uuid)]
    bool has_bin_clips = false; ///< //children/clip
    bool has_updatebehavior = false; ///< //updatebehavior

    /// First //sequence[uuid="…"].
    xml_node sequence_with_uuid(std::string_view uuid) const;

    /// First //clip[@id="…"]/GROUP, where GROUP is inherited_groups[group].
    xml_node master_clip_group(std::size_t group, std::string_view master_clip_id) const;

    /// First file that stands that deep in any //sequence[@id="…"].
    xml_node first_file(nesting depth, std::string_view sequence_id) const;

private:
    using first_by_id = std::unordered_map<std::string, xml_node>;

    /// What an element of a name may answer.
    enum class concern : std::uint8_t { nothing, clip, file, group, media, sequence, uuid, updatebehavior };
    static std::vector<concern> concerns_of(const std::vector<std::string_view>& plain_names);

    void take_in(xml_node element, concern its_concern);
    void take_in_uuid(xml_node uuid);
    void take_in_group(xml_node group);
    void take_in_file(xml_node file);

    /// The attribute "id", counted.
    std::optional<std::string> id_of(xml_node element);

    std::size_t uuids_size_ = 0; ///< bytes
    std::size_t ids_size_ = 0; ///< bytes of the identifiers that were looked at, each time
    first_by_id sequences_by_uuid_;
    std::array<first_by_id, inherited_groups.size()> master_clip_groups_;
    std::array<first_by_id, nestings.size()> first_files_;
};

/// The sequence whose media/video/track/clipitem is `clip_item`, or none.
xml_node sequence_of_video_clip_item(xml_node clip_item);

} // namespace tallyframe
