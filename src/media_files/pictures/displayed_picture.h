// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/pictures/bitmap.h"
#include "media_files/pictures/ffmpeg_handles.h"

#include <cstdint>
#include <optional>

namespace tallyframe {

/// How a stored picture turns into the one on display: transposed first, then mirrored.
struct orientation {
    bool swaps_axes = false;
    bool mirrors_x = false;
    bool mirrors_y = false;

    bool operator==(const orientation&) const = default;
};

/// From a display matrix of nine numbers (quarter turns and mirrors; other angles go to the nearest turn).
orientation orientation_of(const std::int32_t* display_matrix);

/// Which lines of an interlaced frame are shown first.
enum class first_lines { all, upper, lower };

/// What the container says about all frames of a track.
struct track_display {
    AVRational sample_aspect_ratio = {0, 1}; ///< 0 when it says nothing
    orientation turned;
    first_lines first = first_lines::all; ///< where the frames do not say that they are interlaced
    bool gray_is_full_range =
        false; ///< in gray frames that do not say, black is 0: in stills, and films of them
};

struct picture_size {
    int width = 0;
    int height = 0;
};

/// The size at which a viewer shows a frame at full size: turned, its pixels made square by widening or
/// narrowing them.
picture_size displayed_size(const AVFrame& frame, const track_display& track);

/// The frame as a viewer shows it, in that size. Of an interlaced frame the field that comes first, so that
/// movement leaves no combs. Transparent parts are black. Nothing when the size is beyond reason or the pixel
/// format is unknown.
std::optional<bitmap> displayed_picture(const AVFrame& frame, const track_display& track, picture_size size);

/// The size of that width with the same proportions.
picture_size size_of_width(picture_size full, int width);

/// The size with the same proportions whose longer side has at most `side` pixels.
picture_size size_within(picture_size full, int side);

/// A picture reduced to that size.
std::optional<bitmap> resized(const bitmap& picture, picture_size size);

} // namespace tallyframe
