// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/helper_questions.h"
#include "platform/audio_tag_reader.h"
#include "run/account.h"

#include <filesystem>
#include <optional>

namespace tallyframe {

/// Has tags read by a helper. A file over which helpers were lost has no tags, and is a loss.
class helper_tag_reader final : public audio_tag_reader {
public:
    /// `questions` must outlive it.
    explicit helper_tag_reader(helper_questions& questions) : questions_(questions) { }

    std::optional<audio_tags> tags_of(const std::filesystem::path& file) override;

    /// The files whose tags could not be read so far.
    const account& losses() const { return lost_; }

private:
    helper_questions& questions_;
    account lost_;
};

} // namespace tallyframe
