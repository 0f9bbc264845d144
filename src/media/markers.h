// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"
#include "media/marker_record.h"
#include "run/figure_style.h"

#include <cstdint>

namespace tallyframe {

/// The record of a `marker` element. `offset`: frames added to its positions. `is_ppro`: a marker without any
/// colour is green, as it is in that application. `figures`: of its name and comment. Throws analysis_error
/// for a marker without name, in or out.
marker_record marker_hash(xml_node marker, std::int64_t offset, bool is_ppro = false,
                          figure_style figures = figure_style::comparable);

} // namespace tallyframe
