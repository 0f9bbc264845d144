// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "platform/audio_tag_reader.h"
#include "platform/media_locator.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace tallyframe {

/// The tags of a report's media files. Looks at each file once, however many rows use it.
class audio_tag_catalogue {
public:
    audio_tag_catalogue(media_locator& locator, audio_tag_reader& reader) : locator_(locator), reader_(reader)
    {
    }

    /// The tags of a row's media file. Null when the row gets no tag cells: it is no audio row, there is no
    /// such file, or nothing is known of it. Stays valid as long as the catalogue lives.
    const audio_tags* tags_of(const clip_record& record);

private:
    media_locator& locator_;
    audio_tag_reader& reader_;
    std::unordered_map<std::string, std::optional<audio_tags>> by_path_;
};

} // namespace tallyframe
