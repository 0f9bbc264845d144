// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace tallyframe {

/// How long the work on one picture may take, in wall time: media can be made to decode for ever, and a
/// disk on the network can go away.
class time_limit {
public:
    explicit time_limit(std::chrono::milliseconds length) : length_(length) { }

    void start() { end_ = std::chrono::steady_clock::now() + length_; }
    bool is_over() const { return std::chrono::steady_clock::now() >= end_; }

private:
    std::chrono::milliseconds length_;
    std::chrono::steady_clock::time_point end_;
};

} // namespace tallyframe
