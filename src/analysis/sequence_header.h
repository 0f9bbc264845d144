// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "document/xml_node.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tallyframe {

/// What stands in for facts that a sequence lacks.
struct stand_ins {
    std::string name; ///< the others come of the sequence itself
};

/// Reads name, duration, rate, display format, picture size and sample rate of a sequence into `result`;
/// returns the frame of its first timecode.
///
/// Without stand-ins the name, the duration and the timecode with its rate and frame must be there. With them
/// the duration is the end of the last item, the rate is the sequence's own where the timecode has none, the
/// first frame is that of the timecode's text, or 0; what was supplied so is noted in the result's losses.
///
/// Throws analysis_error when something is missing, "This sequence has no timebase" when its rate is none of
/// those supported.
std::int64_t read_sequence_header(xml_node sequence, const std::optional<stand_ins>& missing,
                                  analysis_result& result);

} // namespace tallyframe
