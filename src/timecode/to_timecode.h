// SPDX-License-Identifier: MIT
#pragma once

#include "timecode/display_format.h"
#include "timecode/frame_rates.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tallyframe {

/// How drop-frame timecode leaves numbers out. Simplified: every minute, the first of each ten too, is
/// divided as if it dropped two numbers, so that the last two frames of each minute carry the next minute's
/// label; any rate drops a fifteenth of itself. Standard: as SMPTE ST 12-1 has it, two at 29.97 and four
/// at 59.94 frames a second, and none in each tenth minute; other rates drop none.
enum class drop_frame_counting { simplified, standard };

/// Timecode text "HH:MM:SS:FF" ("HH:MM:SS;FF" unless `format` is non_drop_frame) of a frame count.
///
/// Simplified counting is for editors who compare against older lists; to_frames counts as the standard does.
///
/// `frames` may be fractional: of the simplified count only the frames field is rounded. `rate` in frames per
/// second; without one the count is shown at 29.97, non_drop_frame. The empty text when frames is missing,
/// the nominal rate is 0 or less, or a value is not finite.
std::string to_timecode(std::optional<double> frames, std::optional<double> rate, display_format format,
                        drop_frame_counting counting = drop_frame_counting::simplified);

/// The frame count of a timecode text ("01:00:00;02", "10203.12") or of a rational-time text
/// ("3003/30000s"), or nothing where that cannot be told.
///
/// `frame_duration`: the host's frame duration as rational-time text (such as "1001/30000s"), asked only for
/// rational-time text; nothing when the host has none.
using frame_duration_source = std::function<std::optional<std::string>()>;
std::optional<double> to_frames(std::optional<std::string_view> text, double rate, display_format format,
                                const frame_duration_source& frame_duration = {});

} // namespace tallyframe
