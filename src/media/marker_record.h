// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tallyframe {

/// A marker of a sequence or of a clip. All numbers are frames at the sequence's rate.
struct marker_record {
    std::string name;
    std::string type; ///< "Note", "Chapter", "Compression" or "Scoring"
    std::optional<std::string> comment;
    std::int64_t in_point = 0; ///< as the document has it
    std::int64_t in_frame = 0; ///< where it stands in the report
    std::int64_t out_point = 0; ///< last frame covered
    std::int64_t out_frame = 0;
    std::int64_t duration = 0; ///< 0 for a marker on a single frame
    std::string color; ///< colour name, or empty

    bool operator==(const marker_record&) const = default;
};

} // namespace tallyframe
