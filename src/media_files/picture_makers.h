// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_helper.h"
#include "media_files/picture_key.h"
#include "platform/thumbnailer.h"
#include "run/diagnostics.h"
#include "run/progress.h"

#include <cstddef>
#include <deque>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tallyframe {

struct makers_settings {
    std::filesystem::path program;
    std::size_t helpers = 1; ///< at most, side by side
    helper_limits limits; ///< of each
    std::size_t most_bytes_ahead = 64U << 20U; ///< of pictures that no row has asked for yet
};

/// Helpers that make pictures side by side: one file each, its pictures in the order of their times, so that
/// which helper makes a picture, and when, changes nothing about it.
///
/// A helper that ends or hangs is replaced. The picture that it was at is tried once more, then given up; so
/// is a file that has cost several helpers.
class picture_makers {
public:
    /// `out` is told what was given up, `display` may stop the run; both must outlive it. Starts nothing yet.
    picture_makers(makers_settings settings, diagnostics& out, progress& display);

    /// What will be asked for, in this order; it replaces what was planned before.
    void plan(std::span<const expected_frame> frames);

    /// Nothing when the file gives none. Waits for it, and meanwhile others are made that were planned.
    /// Throws run_cancelled, and failure when no helper can be started.
    std::optional<jpeg_picture> picture(const picture_key& key);

    /// For tests: the processes at work.
    std::vector<pid_t> processes() const;

private:
    struct file_job {
        std::string file;
        int width = 0;
        std::deque<media_time> times; ///< not asked for yet, ascending
        std::vector<media_time> expected; ///< all of them, which the helper is told
    };
    struct worker {
        std::unique_ptr<media_helper> helper;
        std::optional<file_job> job;
        std::deque<media_time> asked;
    };

    void step(const picture_key& awaited);
    void hand_out(const picture_key& awaited);
    void begin(worker& at, file_job job);
    bool make_room();
    void ask(worker& at, const picture_key& awaited);
    void collect(worker& at);
    void replace(worker& at);
    void keep(const file_job& job, media_time time, std::optional<jpeg_picture> picture);
    bool is_at_work_on(const picture_key& key) const;
    bool is_full() const { return bytes_ahead_ > settings_.most_bytes_ahead; }

    makers_settings settings_;
    diagnostics& out_;
    progress& display_;
    std::deque<file_job> jobs_;
    std::vector<worker> workers_;
    std::map<picture_key, std::optional<jpeg_picture>> made_;
    std::map<picture_key, std::size_t> uses_; ///< by rows to come
    std::map<picture_key, int> failures_; ///< helpers that a picture has cost
    std::map<std::string, int> costs_; ///< helpers that a file has cost
    std::size_t bytes_ahead_ = 0;
};

} // namespace tallyframe
