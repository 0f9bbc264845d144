// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "analysis/text_budget.h"
#include "document/document_index.h"
#include "document/xml_node.h"

#include <array>
#include <vector>

namespace tallyframe {

/// The children of a clip item that hold its notes, by inherited_groups.
using note_groups = std::array<std::vector<xml_node>, inherited_groups.size()>;

/// Appends to the clip item a copy of each group that it lacks and that its master clip has.
void inherit_notes(const document_index& index, xml_node clip_item, xml_node masterclipid,
                   note_groups& groups, text_budget& texts);

/// The notes in these groups, trimmed; the first of several counts.
clip_notes read_notes(const note_groups& groups);

} // namespace tallyframe
