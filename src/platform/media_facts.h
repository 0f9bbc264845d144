// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace tallyframe {

struct pixel_size {
    int width = 0; ///< pixels
    int height = 0;

    bool operator==(const pixel_size&) const = default;
};

/// What a document says of a media file, or what the file says of itself, as far as it does.
struct media_facts {
    std::optional<double> duration; ///< seconds
    std::optional<double> frames_per_second; ///< of the pictures
    std::optional<pixel_size> frame_size; ///< as stored: anamorphic pictures are not stretched
    std::string start_timecode; ///< "01:00:00:00", "01:00:00;00"; empty where none is noted
    std::optional<double> start_seconds; ///< since midnight, as sound recorders note the start
    std::optional<int> audio_channels; ///< of all sound tracks together

    bool operator==(const media_facts&) const = default;
};

/// In which of the facts that tell files of one name apart two accounts of a file differ. What only one of
/// them knows is no difference.
struct fact_differences {
    bool duration = false; ///< by more than two frames
    bool rate = false; ///< by more than NTSC rates are rounded
    bool frame_size = false;
    int compared = 0; ///< how many facts both know

    bool any() const { return duration || rate || frame_size; }
};
fact_differences differences_of(const media_facts& a, const media_facts& b);

} // namespace tallyframe
