// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "document/document_index.h"
#include "document/text_budget.h"
#include "document/xml_node.h"

#include <array>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// The children of a clip item that hold its notes, by inherited_groups.
using note_groups = std::array<std::vector<xml_node>, inherited_groups.size()>;

/// The notes of each group of a master clip that has been asked for: many clip items may share one.
using master_clip_notes = std::unordered_map<xml_node, clip_notes>;

/// The notes in these groups, trimmed; the first of several counts. A group that the clip item lacks is that
/// of its master clip, spent of the budget.
clip_notes read_notes(const note_groups& groups, xml_node masterclipid, const document_index& index,
                      text_budget& texts, master_clip_notes& known);

} // namespace tallyframe
