// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "document/xml_node.h"

#include <cstdint>

namespace tallyframe {

/// Reads name, duration, rate, display format, picture size and sample rate of a sequence into `result`;
/// returns the frame of its first timecode. Throws analysis_error when one of those without a default is
/// missing, "This sequence has no timebase" when its rate is none of those supported.
std::int64_t read_sequence_header(xml_node sequence, analysis_result& result);

} // namespace tallyframe
