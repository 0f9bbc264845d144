// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media_locator.h"
#include "run/account.h"

#include <filesystem>
#include <optional>
#include <string>
#include <unordered_set>

namespace tallyframe {

/// Finds media through another locator and counts the files that are not there, each once.
class counted_media final : public media_locator {
public:
    explicit counted_media(media_locator& locator) : locator_(locator) { }

    void expect(std::span<const documented_media> media) override { locator_.expect(media); }
    std::optional<std::filesystem::path> locate(const std::string& path) override;

    const account& losses() const { return lost_; }

private:
    media_locator& locator_;
    std::unordered_set<std::string> missing_;
    account lost_;
};

} // namespace tallyframe
