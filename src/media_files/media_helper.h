// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "media_files/media_protocol.h"

#include <poll.h>
#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>

namespace tallyframe {

/// What one helper may take.
struct helper_limits {
    std::uint64_t memory = 2ULL << 30U; ///< bytes
    std::chrono::seconds processor_time{60}; ///< for each answer
    std::chrono::milliseconds silence = std::chrono::seconds(20); ///< without an answer, a beat, or work done
};

/// A process that reads media files (tallyframe-media). It is ended, with whatever it is at, when this is.
class media_helper {
public:
    /// Throws failure when the program is not there or cannot be started.
    media_helper(const std::filesystem::path& program, const helper_limits& limits);
    media_helper(const media_helper&) = delete;
    media_helper& operator=(const media_helper&) = delete;
    ~media_helper();

    /// Each goes out as soon as the helper takes it. `file` must be open.
    void open(const media_file& file, std::vector<media_time> expected);
    void ask(const message& question);

    /// How many questions have no answer yet.
    std::size_t unanswered() const { return unanswered_; }

    /// What to wait for before the next `exchange`.
    pollfd awaited() const;

    /// Sends and receives what can be at once. False when the helper is of no use any more: it has gone, it
    /// takes longer than it may, or it says what no helper says.
    bool exchange();

    /// The next answer that has come.
    std::optional<message> next_answer();

    /// For tests: whom to stop.
    pid_t process() const { return process_; }

private:
    using clock = std::chrono::steady_clock;

    bool send_waiting();
    bool receive();
    bool take(const message& received);
    bool is_stuck();
    void allow_processor_time() const;
    std::chrono::nanoseconds used_processor_time() const;

    helper_limits limits_;
    file_descriptor socket_;
    pid_t process_ = -1;
    bool is_ready_ = false;
    std::string outgoing_;
    std::optional<media_file> passed_; ///< its descriptor goes with the next byte
    incoming_messages incoming_;
    std::deque<message> answers_;
    std::size_t unanswered_ = 0;
    clock::time_point heard_ = clock::now(); ///< from when on it is silent
    std::chrono::nanoseconds work_seen_{0};
};

} // namespace tallyframe
