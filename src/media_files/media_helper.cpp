// SPDX-License-Identifier: MIT
#include "media_files/media_helper.h"

#include "run/failures.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <new>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tallyframe {

namespace {

struct socket_pair {
    file_descriptor ours;
    file_descriptor theirs;
};

[[noreturn]] void refuse(int error)
{
    throw failure(
        "The part of the program that reads media files (tallyframe-media) cannot be started. Install "
        "Tallyframe again, or report without thumbnails and tags. ("
        + std::generic_category().message(error) + ")");
}

socket_pair connected_sockets()
{
    std::array<int, 2> numbers = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, numbers.data()) != 0)
        refuse(errno);
    fcntl(numbers[0], F_SETFL, O_NONBLOCK);
    return {file_descriptor(numbers[0]), file_descriptor(numbers[1])};
}

/// What the helper is started with: its end of the sockets in place of standard input, nothing to write on,
/// and a group of its own, so that Ctrl-C reaches the program alone.
class helper_start {
public:
    explicit helper_start(int socket)
    {
        check(posix_spawn_file_actions_init(&files_));
        check(posix_spawnattr_init(&attributes_));
        check(posix_spawn_file_actions_adddup2(&files_, socket, STDIN_FILENO));
        check(posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0));
        check(posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, "/dev/null", O_WRONLY, 0));
        check(posix_spawnattr_setpgroup(&attributes_, 0));
        sigset_t none = {};
        sigset_t all = {};
        sigemptyset(&none);
        sigfillset(&all);
        check(posix_spawnattr_setsigmask(&attributes_, &none));
        check(posix_spawnattr_setsigdefault(&attributes_, &all));
        check(posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
    }
    helper_start(const helper_start&) = delete;
    helper_start& operator=(const helper_start&) = delete;
    ~helper_start()
    {
        posix_spawn_file_actions_destroy(&files_);
        posix_spawnattr_destroy(&attributes_);
    }

    pid_t run(const std::filesystem::path& program, std::uint64_t memory) const
    {
        std::string name = program.string();
        std::string most_memory = std::to_string(memory);
        std::array<char*, 3> arguments = {name.data(), most_memory.data(), nullptr};
        std::vector<std::string> kept = kept_environment();
        std::vector<char*> environment;
        environment.reserve(kept.size() + 1);
        for (std::string& variable : kept)
            environment.push_back(variable.data());
        environment.push_back(nullptr);
        pid_t process = -1;
        if (const int error = posix_spawn(&process, name.c_str(), &files_, &attributes_, arguments.data(),
                                          environment.data()))
            refuse(error);
        return process;
    }

private:
    static void check(int error)
    {
        if (error != 0)
            throw std::bad_alloc();
    }

    /// Where its libraries are; nothing else of what the user has set is a helper's business.
    static std::vector<std::string> kept_environment()
    {
        constexpr const char* kept = "LD_LIBRARY_PATH";
        const char* value = std::getenv(kept); // NOLINT(concurrency-mt-unsafe): nobody sets it
        return value != nullptr ? std::vector{std::string(kept) + "=" + value} : std::vector<std::string>();
    }

    posix_spawn_file_actions_t files_ = {};
    posix_spawnattr_t attributes_ = {};
};

} // namespace

media_helper::media_helper(const std::filesystem::path& program, const helper_limits& limits)
    : limits_(limits)
{
    socket_pair sockets = connected_sockets();
    process_ = helper_start(sockets.theirs.number()).run(program, limits.memory);
    socket_ = std::move(sockets.ours);
    allow_processor_time();
}

media_helper::~media_helper()
{
    kill(process_, SIGKILL);
    // One that hangs in the depths of the system is left to whoever cleans up after this process.
    constexpr int most_tries = 200;
    for (int i = 0; i < most_tries && waitpid(process_, nullptr, WNOHANG) == 0; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void media_helper::open(const media_file& file, std::vector<media_time> expected)
{
    passed_ = file;
    outgoing_ +=
        bytes_of(message_of(file_to_open{file.name().filename().string(), file.size(), std::move(expected)}));
}

void media_helper::ask(const message& question)
{
    if (unanswered_++ == 0) {
        heard_ = clock::now();
        allow_processor_time();
    }
    outgoing_ += bytes_of(question);
}

pollfd media_helper::awaited() const
{
    const bool has_more_to_say = !outgoing_.empty();
    return {socket_.number(), static_cast<short>(has_more_to_say ? POLLIN | POLLOUT : POLLIN), 0};
}

bool media_helper::exchange()
{
    try {
        return send_waiting() && receive() && !is_stuck();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return false;
    }
}

std::optional<message> media_helper::next_answer()
{
    if (answers_.empty())
        return std::nullopt;
    message first = std::move(answers_.front());
    answers_.pop_front();
    return first;
}

bool media_helper::send_waiting()
{
    while (!outgoing_.empty()) {
        iovec part = {outgoing_.data(), outgoing_.size()};
        msghdr header = {};
        header.msg_iov = &part;
        header.msg_iovlen = 1;
        alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control = {};
        if (passed_) {
            header.msg_control = control.data();
            header.msg_controllen = control.size();
            cmsghdr* sent_with = CMSG_FIRSTHDR(&header);
            sent_with->cmsg_level = SOL_SOCKET;
            sent_with->cmsg_type = SCM_RIGHTS;
            sent_with->cmsg_len = CMSG_LEN(sizeof(int));
            const int number = passed_->descriptor();
            std::memcpy(CMSG_DATA(sent_with), &number, sizeof number);
        }
        const ssize_t count = sendmsg(socket_.number(), &header, MSG_NOSIGNAL);
        if (count < 0)
            return errno == EAGAIN || errno == EINTR;
        outgoing_.erase(0, static_cast<std::size_t>(count));
        passed_.reset();
    }
    return true;
}

bool media_helper::receive()
{
    std::array<char, 65'536> bytes = {};
    while (true) {
        const ssize_t count = recv(socket_.number(), bytes.data(), bytes.size(), 0);
        if (count < 0)
            return errno == EAGAIN || errno == EINTR;
        if (count == 0)
            return false;
        heard_ = clock::now();
        incoming_.add({bytes.data(), static_cast<std::size_t>(count)});
        while (const std::optional<message> received = incoming_.next()) {
            if (!take(*received))
                return false;
        }
    }
}

bool media_helper::take(const message& received)
{
    switch (received.kind) {
    case message_kind::ready:
        return !std::exchange(is_ready_, true);
    case message_kind::beat:
        return true;
    case message_kind::picture:
    case message_kind::tags:
    case message_kind::facts:
        if (unanswered_ == 0)
            return false;
        --unanswered_;
        answers_.push_back(received);
        allow_processor_time();
        return true;
    default:
        return false;
    }
}

/// Stopped, or waiting for a disk that has gone. What works without a word is bounded by its processor time.
bool media_helper::is_stuck()
{
    const clock::time_point now = clock::now();
    if (unanswered_ == 0 || now - heard_ < limits_.silence)
        return false;
    const std::chrono::nanoseconds work = used_processor_time();
    const bool has_worked = work - work_seen_ > limits_.silence / 100;
    work_seen_ = work;
    heard_ = now;
    return !has_worked;
}

std::chrono::nanoseconds media_helper::used_processor_time() const
{
    clockid_t processor_clock = {};
    timespec used = {};
    if (clock_getcpuclockid(process_, &processor_clock) != 0 || clock_gettime(processor_clock, &used) != 0)
        return std::chrono::nanoseconds(0);
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
}

/// From now on. Set from outside, where the helper cannot reach it.
void media_helper::allow_processor_time() const
{
    const auto used = std::chrono::duration_cast<std::chrono::seconds>(used_processor_time());
    const auto most = static_cast<rlim_t>((used + limits_.processor_time).count() + 1);
    const rlimit limit = {most, RLIM_INFINITY};
    prlimit(process_, RLIMIT_CPU, &limit, nullptr);
}

} // namespace tallyframe
