// SPDX-License-Identifier: MIT
#pragma once

#include "run/progress.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

namespace tallyframe::window {

/// What the progress sheet shows at a moment.
struct progress_state {
    bool is_determinate = false; ///< otherwise the bar moves to and fro
    std::int64_t value = 0;
    std::int64_t progress_bar_length = 0;
    std::string message; ///< without the line break at its end

    bool operator==(const progress_state&) const = default;
};

/// The progress of a run that has a thread of its own: the run reports here, the sheet looks here when it
/// redraws.
class run_progress final : public progress {
public:
    void begin(std::int64_t progress_bar_length) override;
    void advance(std::string_view message) override;
    void show_message(std::string_view message) override;
    void spin(std::string_view message) override;
    void end() override { } // the sheet closes once the run has given its thread back
    void leave_if_cancelled() override;

    progress_state state() const;

    /// Makes the run's next step throw run_cancelled.
    void cancel() { is_cancelled_ = true; }
    bool is_cancelled() const { return is_cancelled_; }

private:
    void set_message(std::string_view message);

    mutable std::mutex mutex_;
    progress_state state_;
    std::atomic<bool> is_cancelled_ = false;
};

} // namespace tallyframe::window
