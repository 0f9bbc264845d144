// SPDX-License-Identifier: MIT
#pragma once

#include "timecode/display_format.h"
#include "timecode/frame_rates.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tallyframe {

/// A media file that the document defines in full.
struct file_record {
    std::string id;
    std::optional<std::int64_t> src_duration; ///< frames at fcp_rate; nothing marks a still image
    std::optional<frame_rate> fcp_rate; ///< nothing only in bins, for a file without a timebase
    std::optional<std::string> type; ///< the rate's display name
    std::optional<std::string> frame_size; ///< "1920 × 1080"; never one half alone
    display_format displayformat = display_format::non_drop_frame;
    double timecode_frame = 0; ///< first timecode in frames at fcp_rate; may be a fraction
    std::optional<std::string> samplerate; ///< samples a second, as written
    std::optional<std::int64_t> audio_channels; ///< of all its sound; nothing where it has none
    std::optional<std::string> reel_name; ///< ASCII
    std::optional<std::string> roll_name; ///< sound roll, ASCII
    std::optional<std::string> path; ///< decoded, or what generates the media, such as "Slug"
    std::optional<std::string> video_format;
    std::optional<std::string> audio_format;
};

} // namespace tallyframe
