// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "platform/media_services.h"
#include "writers/writer.h"

#include <filesystem>

namespace tallyframe {

/// A report whose pictures stay beside it.
struct illustrated_report {
    account lost;
    std::filesystem::path pictures; ///< the folder where they are
};

/// Writes a report and puts the pictures in `media.folder` into their place beside it: both or neither.
/// Throws what the format throws, and failure when the pictures cannot take their place or would replace a
/// media file of the analysed clips.
illustrated_report write_with_thumbnails(const file_format& format, writing what,
                                         const analysis_result& analysis, const media_services& media);

} // namespace tallyframe
