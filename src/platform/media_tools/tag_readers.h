// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio_tag_reader.h"
#include "platform/media_tools/child_process.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace tallyframe {

/// Reads the tags out of the file itself: ID3, Vorbis comments, MP4 atoms, RIFF and AIFF chunks.
class taglib_tag_reader final : public audio_tag_reader {
public:
    std::string raw_tags(const std::filesystem::path& file) override;
};

/// Asks the system's index of files.
class mdls_tag_reader final : public audio_tag_reader {
public:
    explicit mdls_tag_reader(std::filesystem::path program, output_limits limits = {})
        : program_(std::move(program)), limits_(limits)
    {
    }

    std::string raw_tags(const std::filesystem::path& file) override;

private:
    std::filesystem::path program_;
    output_limits limits_;
};

/// The system's index where it has one (`mdls` on the PATH), the files themselves elsewhere.
std::unique_ptr<audio_tag_reader> tag_reader_of_this_system();

} // namespace tallyframe
