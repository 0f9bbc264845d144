// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace xls {

/// While it lives, signals that would end the program wait (in this thread), so that none of them leaves a
/// file half-way.
class signal_pause {
public:
    signal_pause();
    ~signal_pause();
    signal_pause(const signal_pause&) = delete;
    signal_pause& operator=(const signal_pause&) = delete;

private:
    sigset_t before_{};
};

/// A file that comes into being whole or not at all: it is written beside the target and then takes its
/// place. Unless publish succeeds the target stays as it is and the new file vanishes.
///
/// A symbolic link is followed. The permissions of an older file are kept; where it has further names (hard
/// links), they keep the older content. All members throw workbook_error with a sentence about the target.
class saved_file {
public:
    /// Refuses a target that is not a file or is read-only, as saving in a desktop program does.
    explicit saved_file(const std::filesystem::path& target);
    ~saved_file();
    saved_file(const saved_file&) = delete;
    saved_file& operator=(const saved_file&) = delete;

    std::FILE* stream() const { return stream_.get(); }

    /// Brings what was written to the disk. Nothing can be written any more.
    void finish();

    /// Puts the file, once it is finished, in the target's place.
    void publish();

    /// Throws the workbook_error for a write that failed with this errno.
    [[noreturn]] void fail(int error) const;

private:
    struct closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    void open_beside();

    signal_pause signals_; ///< first in, last out: the file is cleared away before they act
    std::filesystem::path target_;
    std::filesystem::path real_target_; ///< what target_ links to
    std::filesystem::path beside_; ///< the new file while it is not published
    std::unique_ptr<std::FILE, closer> stream_;
};

} // namespace xls
