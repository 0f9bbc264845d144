// SPDX-License-Identifier: MIT
#include "cli/command_line_host.h"

#include "run/badge_text.h"
#include "run/failures.h"
#include "text/shortened.h"
#include "text/visible_text.h"

#include <fmt/format.h>

#include <csignal>

namespace tallyframe::cli {

namespace {

volatile std::sig_atomic_t stop_requested = 0;

void request_stop(int signal_number)
{
    stop_requested = 1;
    std::signal(signal_number, SIG_DFL);
}

/// The first line of a message, as much of it as stands beside the percentage in a line of 80 characters: a
/// longer line would break, and the next one could not take its place.
std::string shown_line(std::string_view message)
{
    constexpr std::size_t longest = 72;
    return shortened(visible_text(message.substr(0, message.find('\n'))), longest);
}

} // namespace

void stop_on_signals()
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        if (std::signal(number, request_stop) == SIG_IGN)
            std::signal(number, SIG_IGN); // as nohup and a shell's background jobs have it
    }
    for (const int number : {SIGPIPE, SIGXFSZ})
        std::signal(number, SIG_IGN); // the write that failed says so
}

void stream_diagnostics::write(std::string_view text)
{
    if (!quiet_)
        out_.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void line_progress::begin(std::int64_t progress_bar_length)
{
    leave_if_cancelled();
    value_ = 0;
    length_ = progress_bar_length;
}

void line_progress::advance(std::string_view message)
{
    leave_if_cancelled();
    ++value_;
    if (!shown_)
        return;
    if (!message.empty())
        message_ = shown_line(message);
    show(fmt::format("{:>4}  {}", badge_text(value_, length_), message_));
}

void line_progress::show_message(std::string_view message)
{
    leave_if_cancelled();
    if (!shown_)
        return;
    message_ = shown_line(message);
    show(fmt::format("      {}", message_));
}

void line_progress::spin(std::string_view message)
{
    show_message(message);
}

void line_progress::end()
{
    if (line_is_open_)
        err_ << '\n' << std::flush;
    line_is_open_ = false;
    line_.clear();
    message_.clear();
}

void line_progress::leave_if_cancelled()
{
    if (stop_requested != 0)
        throw run_cancelled();
}

void line_progress::show(const std::string& line)
{
    if (line == line_)
        return; // a step in ten thousand changes what is seen
    const std::size_t rest_of_old_line = line_.size() > line.size() ? line_.size() - line.size() : 0;
    err_ << '\r' << line << std::string(rest_of_old_line, ' ') << std::flush;
    line_ = line;
    line_is_open_ = true;
}

void printing_workspace::open_folder(const std::filesystem::path& folder)
{
    err_ << fmt::format("The thumbnails are in {}\n", visible_text(folder.string()));
}

} // namespace tallyframe::cli
