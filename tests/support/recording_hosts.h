// SPDX-License-Identifier: MIT
#pragma once

#include "platform/diagnostics.h"
#include "platform/progress.h"

#include <string>
#include <vector>

namespace tallyframe::testing {

struct recording_diagnostics final : diagnostics {
    std::vector<std::string> texts; ///< one for each call

    void write(std::string_view text) override { texts.emplace_back(text); }
};

struct recording_progress final : progress {
    std::int64_t length = -1;
    std::vector<std::string> messages; ///< one for each step

    void begin(std::int64_t progress_bar_length) override { length = progress_bar_length; }
    void advance(std::string_view message) override { messages.emplace_back(message); }
    void show_message(std::string_view) override { }
    void spin(std::string_view) override { }
    void end() override { }
};

} // namespace tallyframe::testing
