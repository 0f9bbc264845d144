// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tallyframe {

/// The tags of an audio file. A text that the file lacks is empty.
struct audio_tags {
    std::string song_title;
    std::string album;
    std::optional<std::int64_t> track_number; ///< 7 for "7/12"; 0 for a text without a number
    std::optional<std::int64_t> year; ///< 1999 for "1999-05-01"; 0 for a text without a number
    std::string musical_genre;
    std::string authors; ///< "Ann,, Bo": a list has always kept the comma that stood behind a name
    std::string composer;
    std::string producer;

    bool operator==(const audio_tags&) const = default;
};

/// Reads the tags of audio files.
class audio_tag_reader {
public:
    virtual ~audio_tag_reader() = default;

    /// Nothing when nothing is known of the file.
    virtual std::optional<audio_tags> tags_of(const std::filesystem::path& file) = 0;
};

} // namespace tallyframe
