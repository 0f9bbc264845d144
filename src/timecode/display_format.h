// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tallyframe {

/// How timecodes are counted and written.
enum class display_format {
    unknown, ///< counts like non_drop_frame, with ";" before the frames like drop_frame
    non_drop_frame, ///< gives every frame the next number
    drop_frame, ///< leaves numbers out where that keeps pace with the clock
};

/// What a document calls "DF" or "NDF"; any other text is unknown.
constexpr display_format display_format_of(std::string_view text)
{
    if (text == "DF")
        return display_format::drop_frame;
    return text == "NDF" ? display_format::non_drop_frame : display_format::unknown;
}

} // namespace tallyframe
