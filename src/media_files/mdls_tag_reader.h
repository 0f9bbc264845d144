// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/child_process.h"
#include "platform/audio_tag_reader.h"

#include <filesystem>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace tallyframe {

/// Asks the system's index of files.
class mdls_tag_reader final : public audio_tag_reader {
public:
    explicit mdls_tag_reader(std::filesystem::path program, output_limits limits = {})
        : program_(std::move(program)), limits_(std::move(limits))
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
    /// `reader` must outlive it.
    explicit remembered_tags(audio_tag_reader& reader) : reader_(reader) { }

    std::optional<audio_tags> tags_of(const std::filesystem::path& file) override;

private:
    audio_tag_reader& reader_;
    std::unordered_map<std::string, std::optional<audio_tags>> by_file_;
};

} // namespace tallyframe
