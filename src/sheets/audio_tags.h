// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"
#include "platform/audio_tag_reader.h"
#include "platform/media_locator.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tallyframe {

/// The tags of an audio file, as the cells show them. A tag that the file lacks is empty.
struct audio_tags {
    std::string song_title;
    std::string album;
    std::optional<double> track_number; ///< a whole number
    std::optional<double> year; ///< a whole number
    std::string musical_genre;
    std::string authors;
    std::string composer;
    std::string producer;

    bool operator==(const audio_tags&) const = default;
};

/// The tags out of the raw form that audio_tag_reader gives. Nothing when that is empty.
std::optional<audio_tags> parse_audio_tags(std::string_view raw);

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
