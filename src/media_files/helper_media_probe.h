// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/helper_questions.h"
#include "platform/media_probe.h"

#include <filesystem>
#include <optional>

namespace tallyframe {

/// Has a helper look what media files are. A file over which helpers were lost cannot be read as media.
class helper_media_probe final : public media_probe {
public:
    /// `questions` must outlive it.
    explicit helper_media_probe(helper_questions& questions) : questions_(questions) { }

    std::optional<media_facts> facts_of(const std::filesystem::path& file) override;

private:
    helper_questions& questions_;
};

} // namespace tallyframe
