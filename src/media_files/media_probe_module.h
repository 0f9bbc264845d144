// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media_probe.h"

namespace tallyframe {

/// Asks media files through the module that reads them. The module is loaded for the first file, which throws
/// failure when it is not there or does not fit.
class module_media_probe final : public media_probe {
public:
    std::optional<media_facts> facts_of(const std::filesystem::path& file) override;

private:
    bool (*read_)(const char* file, media_facts& facts) = nullptr;
};

} // namespace tallyframe
