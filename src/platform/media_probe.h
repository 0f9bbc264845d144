// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media_facts.h"

#include <filesystem>
#include <optional>

namespace tallyframe {

/// Asks media files what they are.
class media_probe {
public:
    virtual ~media_probe() = default;

    /// Nothing when the file cannot be read as media.
    virtual std::optional<media_facts> facts_of(const std::filesystem::path& file) = 0;
};

} // namespace tallyframe
