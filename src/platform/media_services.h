// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio_tag_reader.h"
#include "platform/media_locator.h"
#include "platform/media_probe.h"
#include "platform/thumbnailer.h"

namespace tallyframe {

class thumbnail_folder;

/// What a host gives a report so that it can look at media files.
struct media_services {
    media_locator& locator;
    audio_tag_reader& tags;
    thumbnailer* pictures = nullptr; ///< null unless in-point thumbnails are wanted
    thumbnail_folder* folder = nullptr; ///< null unless in-point thumbnails are wanted
    bool is_asked_for = false; ///< the user wants media looked at: a file that is not there is a loss
    media_probe* probe = nullptr; ///< null: nothing is known of what is in the files
};

} // namespace tallyframe
