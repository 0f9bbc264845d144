// SPDX-License-Identifier: MIT
#pragma once

#include "document/document_index.h"
#include "document/text_budget.h"
#include "document/xml_node.h"

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tallyframe {

/// What analyses add to their document. The document stays as it is: the additions stand beside it, and what
/// reads a clip reads the document with them. Later analyses see those of earlier ones, as if they stood in
/// the document. One value for each document; its elements must live as long.
class document_additions {
public:
    /// Refers each video clip of the sequence that is itself a sequence to the file of the first clip inside,
    /// so that it is listed with that media. A clip keeps the file that an earlier analysis has given to it.
    void refer_to_nested_files(xml_node sequence, const document_index& index, text_budget& texts);

    /// The file that a clip item has got for a `sequence` inside of it, as if it stood directly before that
    /// element; none where nothing was added.
    xml_node file_before(xml_node nested_sequence) const;

    /// The values of a keyframed scale in one text, in the place of what its `value` element says.
    void join_scale(xml_node value, std::string joined);

    /// What a `value` element says, joined or not.
    std::string text_of(xml_node value) const;

private:
    xml_node nested_sequence_file(const document_index& index, const std::string& sequence_id) const;
    void take_in(xml_node nested, nesting depth, xml_node outer, const document_index& index);

    std::unordered_map<xml_node, xml_node> files_before_; ///< by nested sequence
    std::unordered_map<xml_node, std::string> joined_scales_; ///< by `value` element

    /// The nested sequences whose file stands before any that the document has in the sequence of that id.
    std::array<std::unordered_map<std::string, xml_node>, nestings.size()> first_added_;
};

} // namespace tallyframe
