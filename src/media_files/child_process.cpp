// SPDX-License-Identifier: MIT
#include "media_files/child_process.h"

#include "media_files/media_file.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string_view>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace tallyframe {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Throws std::bad_alloc: in so far as these calls can fail at all, memory is what they lack.
void prepare(int result)
{
    if (result != 0)
        throw std::bad_alloc();
}

struct spawn_settings {
    spawn_settings()
    {
        prepare(posix_spawn_file_actions_init(&files));
        if (posix_spawnattr_init(&attributes) == 0)
            return;
        posix_spawn_file_actions_destroy(&files);
        throw std::bad_alloc();
    }
    spawn_settings(const spawn_settings&) = delete;
    spawn_settings& operator=(const spawn_settings&) = delete;
    ~spawn_settings()
    {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }

    posix_spawn_file_actions_t files = {};
    posix_spawnattr_t attributes = {};
};

/// Starts the program in a process group of its own, so that what it starts can be ended with it.
std::optional<pid_t> started(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                             int output)
{
    spawn_settings settings;
    prepare(posix_spawn_file_actions_addopen(&settings.files, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    prepare(posix_spawn_file_actions_adddup2(&settings.files, output, STDOUT_FILENO));
    prepare(posix_spawn_file_actions_addopen(&settings.files, STDERR_FILENO, "/dev/null", O_WRONLY, 0));
    prepare(posix_spawnattr_setflags(&settings.attributes, POSIX_SPAWN_SETPGROUP));
    prepare(posix_spawnattr_setpgroup(&settings.attributes, 0));

    std::string name = program.string();
    std::vector<std::string> copies = arguments;
    std::vector<char*> argv = {name.data()};
    for (std::string& argument : copies)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawn(&child, name.c_str(), &settings.files, &settings.attributes, argv.data(), environ) != 0)
        return std::nullopt;
    return child;
}

/// Everything up to the end; nothing when a limit comes first.
std::optional<std::string> read_all(int input, const output_limits& limits)
{
    const auto end = steady_clock::now() + limits.time;
    std::string output;
    std::array<char, 4096> buffer = {};
    while (output.size() <= limits.bytes) {
        const auto left = std::chrono::duration_cast<milliseconds>(end - steady_clock::now()).count();
        if (left <= 0)
            return std::nullopt;
        pollfd readable = {input, POLLIN, 0};
        const int ready = poll(&readable, 1, static_cast<int>(std::min<std::int64_t>(left, 100)));
        limits.look();
        if (ready <= 0)
            continue;
        const ssize_t count = read(input, buffer.data(), buffer.size());
        if (count == 0)
            return output;
        if (count < 0 && errno != EINTR)
            return std::nullopt;
        output.append(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return std::nullopt;
}

int wait_status(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    return status;
}

} // namespace

std::optional<std::filesystem::path> program_on_path(const std::string& name)
{
    const char* path = std::getenv("PATH");
    std::string_view folders = path != nullptr ? path : "";
    while (!folders.empty()) {
        const std::size_t end = folders.find(':');
        const std::filesystem::path folder = folders.substr(0, end);
        folders.remove_prefix(end == std::string_view::npos ? folders.size() : end + 1);
        std::error_code unseen;
        const std::filesystem::path program = folder / name;
        if (folder.is_absolute() && std::filesystem::is_regular_file(program, unseen)
            && access(program.c_str(), X_OK) == 0)
            return program;
    }
    return std::nullopt;
}

std::optional<std::string> output_of(const std::filesystem::path& program,
                                     const std::vector<std::string>& arguments, const output_limits& limits)
{
    std::array<int, 2> ends = {-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::nullopt;
    const file_descriptor input(ends[0]);
    file_descriptor output(ends[1]);
    const std::optional<pid_t> child = started(program, arguments, output.number());
    output.close();
    if (!child)
        return std::nullopt;

    const auto end = [&] {
        kill(-*child, SIGKILL);
        wait_status(*child);
    };
    try {
        std::optional<std::string> printed = read_all(input.number(), limits);
        if (printed)
            return wait_status(*child) == 0 ? printed : std::nullopt;
    } catch (...) {
        end();
        throw;
    }
    end();
    return std::nullopt;
}

} // namespace tallyframe
