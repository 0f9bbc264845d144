// SPDX-License-Identifier: MIT
#include "window/runs/run_progress.h"

#include "run/failures.h"

namespace tallyframe::window {

void run_progress::begin(std::int64_t progress_bar_length)
{
    leave_if_cancelled();
    const std::lock_guard lock(mutex_);
    state_.is_determinate = true;
    state_.value = 0;
    state_.progress_bar_length = progress_bar_length;
}

void run_progress::advance(std::string_view message)
{
    leave_if_cancelled();
    const std::lock_guard lock(mutex_);
    ++state_.value;
    if (!message.empty())
        set_message(message);
}

void run_progress::show_message(std::string_view message)
{
    leave_if_cancelled();
    const std::lock_guard lock(mutex_);
    set_message(message);
}

void run_progress::spin(std::string_view message)
{
    leave_if_cancelled();
    const std::lock_guard lock(mutex_);
    state_.is_determinate = false;
    set_message(message);
}

progress_state run_progress::state() const
{
    const std::lock_guard lock(mutex_);
    return state_;
}

void run_progress::leave_if_cancelled()
{
    if (is_cancelled_)
        throw run_cancelled();
}

void run_progress::set_message(std::string_view message)
{
    state_.message = message.substr(0, message.find_last_not_of('\n') + 1);
}

} // namespace tallyframe::window
