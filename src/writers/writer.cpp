// SPDX-License-Identifier: MIT
#include "writers/writer.h"

namespace tallyframe {

row_colors colors_of(const report_options& options)
{
    return {options.video_row_color, options.audio_row_color, options.marker_row_color};
}

} // namespace tallyframe
