// SPDX-License-Identifier: MIT
#pragma once

#include "run/failures.h"
#include "run/progress.h"

#include <limits>
#include <string>
#include <vector>

namespace tallyframe::testing_support {

/// Notes what a run tells its display, and stops the run at a given step or look.
class counting_progress final : public progress {
public:
    void begin(std::int64_t progress_bar_length) override { length = progress_bar_length; }
    void advance(std::string_view message) override
    {
        step_messages.emplace_back(message);
        if (++steps >= stop_at)
            throw run_cancelled();
    }
    void show_message(std::string_view message) override { messages.emplace_back(message); }
    void spin(std::string_view message) override { messages.emplace_back(message); }
    void end() override { ended = true; }
    void leave_if_cancelled() override
    {
        if (++looks >= stop_at_look)
            throw run_cancelled();
    }

    std::int64_t length = 0;
    std::int64_t steps = 0;
    std::int64_t stop_at = std::numeric_limits<std::int64_t>::max();
    std::int64_t looks = 0; ///< at whether the run is still wanted, between the steps
    std::int64_t stop_at_look = std::numeric_limits<std::int64_t>::max();
    std::vector<std::string> step_messages;
    std::vector<std::string> messages; ///< those of no step
    bool ended = false;
};

} // namespace tallyframe::testing_support
