// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <utility>

namespace tallyframe {

/// How long the work on one picture may take, in wall time: media can be made to decode for ever, and a
/// disk on the network can go away.
///
/// Whoever works under it asks at each step whether it is over, and so tells that the work goes on.
class time_limit {
public:
    /// `advance`: called at each step.
    explicit time_limit(
        std::chrono::milliseconds length, std::function<void()> advance = [] {})
        : length_(length), advance_(std::move(advance))
    {
    }

    void start() { end_ = std::chrono::steady_clock::now() + length_; }
    bool is_over() const
    {
        advance_();
        return std::chrono::steady_clock::now() >= end_;
    }

private:
    std::chrono::milliseconds length_;
    std::function<void()> advance_;
    std::chrono::steady_clock::time_point end_;
};

} // namespace tallyframe
