// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "analysis/clip_notes.h"
#include "analysis/document_additions.h"
#include "document/document_index.h"
#include "document/text_budget.h"
#include "document/xml_node.h"
#include "media/media_files.h"
#include "run/diagnostics.h"
#include "run/progress.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tallyframe {

/// What the analyses of all items share while the tracks are walked.
struct analysis_walk {
    const document_index& index;
    const file_catalogue& files;
    document_additions& additions;
    diagnostics& out;
    progress& display;
    analysis_result& result; ///< its header is complete, its records grow
    std::int64_t sequence_start_frame; ///< 0 outside sequences
    text_budget& texts; ///< records take of it for what they share
    std::unordered_map<const file_record*, std::size_t>& media_file_positions; ///< in the result, so far

    /// First source frame of the last clip that had media. Markers of a clip without media count from it.
    std::optional<double> src_start_frame;

    master_clip_notes master_notes = {};
};

/// A track on the walk.
struct track_context {
    xml_node track;
    std::string label; ///< "V1"; outside sequences always number 1
    std::string name; ///< empty, or a blank and the name
    std::string enabled; ///< "TRUE", "FALSE" or what the document has, in upper case
    xml_node bin_clip; ///< outside sequences: the clip that owns the track
    std::optional<std::string> bin; ///< outside sequences: the name of the bin that holds the clip
};

/// The place of an item that covers the frames from `start` up to `end` (exclusive) of the sequence.
track_position position_of(const analysis_walk& walk, const track_context& track, std::int64_t start,
                           std::int64_t end);

/// Text of a child that every item of its kind must have. Throws analysis_error with a sentence that names
/// the child, the item and its track.
std::string required_text(const track_context& track, xml_node item, std::string_view child);

/// Where an item starts or ends that says `own`. -1 is hidden under a transition: it then is what the element
/// beside the item says as its `name` ("start", "end"), nothing when that says none.
std::optional<std::int64_t> position_or_neighbour(std::int64_t own, xml_node beside, std::string_view name);

/// "The clip "Interview 3" on track V2", for such sentences.
std::string description_of(const track_context& track, xml_node item);

} // namespace tallyframe
