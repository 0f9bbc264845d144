// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/child_process.h"
#include "platform/audio_tag_reader.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace tallyframe {

/// Reads the tags out of the file itself: ID3, APE, Vorbis comments, atoms of MP4 and QuickTime, the chunks
/// of WAV, W64, AIFF and CAF, Matroska's. Where a file has several kinds, one fills up what the other lacks.
class taglib_tag_reader final : public audio_tag_reader {
public:
    std::optional<audio_tags> tags_of(const std::filesystem::path& file) override;
};

/// Asks the system's index of files.
class mdls_tag_reader final : public audio_tag_reader {
public:
    explicit mdls_tag_reader(std::filesystem::path program, output_limits limits = {})
        : program_(std::move(program)), limits_(limits)
    {
    }

    std::optional<audio_tags> tags_of(const std::filesystem::path& file) override;

private:
    std::filesystem::path program_;
    output_limits limits_;
};

/// Asks another reader once for each file, however many reports of a run need it.
class remembered_tags final : public audio_tag_reader {
public:
    explicit remembered_tags(std::unique_ptr<audio_tag_reader> reader) : reader_(std::move(reader)) { }

    std::optional<audio_tags> tags_of(const std::filesystem::path& file) override;

private:
    std::unique_ptr<audio_tag_reader> reader_;
    std::unordered_map<std::string, std::optional<audio_tags>> by_file_;
};

/// The system's index where it has one (`mdls` on the PATH), the files themselves elsewhere.
std::unique_ptr<audio_tag_reader> tag_reader_of_this_system();

} // namespace tallyframe
