// SPDX-License-Identifier: MIT
#pragma once

#include "platform/workspace.h"
#include "run/diagnostics.h"
#include "run/progress.h"

#include <cstdint>
#include <ostream>
#include <string>

namespace tallyframe::cli {

/// Diagnostics on a stream, or nowhere with --quiet.
class stream_diagnostics final : public diagnostics {
public:
    stream_diagnostics(std::ostream& out, bool quiet) : out_(out), quiet_(quiet) { }

    void write(std::string_view text) override;

private:
    std::ostream& out_;
    bool quiet_;
};

/// Notices Ctrl-C at every step, and shows one line that is rewritten in place when it is wanted.
class line_progress final : public progress {
public:
    line_progress(std::ostream& err, bool shown) : err_(err), shown_(shown) { }
    line_progress(const line_progress&) = delete;
    line_progress& operator=(const line_progress&) = delete;
    ~line_progress() override { line_progress::end(); }

    void begin(std::int64_t progress_bar_length) override;
    void advance(std::string_view message) override;
    void show_message(std::string_view message) override;
    void spin(std::string_view message) override;
    void end() override;
    void leave_if_cancelled() override;

private:
    void show(const std::string& line);

    std::ostream& err_;
    bool shown_;
    bool line_is_open_ = false;
    std::int64_t value_ = 0;
    std::int64_t length_ = 0;
    std::string message_;
    std::string line_;
};

/// A command line opens no folders: it says where they are.
class printing_workspace final : public workspace {
public:
    explicit printing_workspace(std::ostream& err) : err_(err) { }
    void open_folder(const std::filesystem::path& folder) override;

private:
    std::ostream& err_;
};

/// Makes Ctrl-C, a polite request to end and the end of the terminal stop the run at its next step; a second
/// one ends the process at once. A reader of the output that goes away stops nothing.
void stop_on_signals();

} // namespace tallyframe::cli
