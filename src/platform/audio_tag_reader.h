// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace tallyframe {

/// Reads the tags of audio files.
class audio_tag_reader {
public:
    virtual ~audio_tag_reader() = default;

    /// The tags of a file in the raw form of the `mdls` tool: the values of kMDItemAlbum,
    /// kMDItemAudioTrackNumber, kMDItemAuthors, kMDItemComposer, kMDItemMusicalGenre, kMDItemProducer,
    /// kMDItemRecordingYear and kMDItemTitle in this order, each followed by a NUL character, empty when the
    /// file lacks it. The authors are a list: a line "(", a line for each name in double quotes (all but the
    /// last with a comma), a line ")". Empty when nothing is known of the file.
    virtual std::string raw_tags(const std::filesystem::path& file) = 0;
};

/// Knows no tags.
class no_audio_tags final : public audio_tag_reader {
public:
    std::string raw_tags(const std::filesystem::path&) override { return {}; }
};

} // namespace tallyframe
