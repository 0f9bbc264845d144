// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/report_media.h"
#include "report/report_options.h"

#include <string>
#include <vector>

namespace tallyframe::window {

/// A folder in which media is looked for.
struct media_place {
    /// The folder that the timeline names, whose files are at the same places below `folder` now. Empty:
    /// `folder` and all below it are searched by the files' names.
    std::string named_in_timeline;
    std::string folder;

    bool operator==(const media_place&) const = default;
};

/// How a report with these options looks at media.
media_choice media_choice_of(const report_options& options, const std::vector<media_place>& places);

} // namespace tallyframe::window
