// SPDX-License-Identifier: MIT
#include "media_files/helper/service.h"

#include "media_files/media_file.h"
#include "media_files/media_protocol.h"
#include "media_files/pictures/clip_picture.h"
#include "media_files/pictures/media_reader.h"
#include "media_files/pictures/read_media_facts.h"
#include "media_files/tag_readers.h"

#include <sys/socket.h>
#include <sys/uio.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

namespace tallyframe {

namespace {

using std::chrono::steady_clock;

/// Whoever waits for answers measures the time without progress; here nothing ends by the clock.
constexpr auto no_limit = std::chrono::hours(24 * 365);

constexpr auto time_between_beats = std::chrono::milliseconds(100);

/// The other side has gone.
struct hung_up { };

class connection {
public:
    explicit connection(int socket) : socket_(socket) { }

    message next_message()
    {
        while (true) {
            if (std::optional<message> whole = incoming_.next())
                return std::move(*whole);
            receive();
        }
    }

    void send(const message& answer)
    {
        const std::string bytes = bytes_of(answer);
        for (std::size_t sent = 0; sent < bytes.size();)
            sent += send_some(std::string_view(bytes).substr(sent), 0);
        last_sent_ = steady_clock::now();
    }

    /// Says that the work goes on, unless that has just been said or the other side is too busy to hear it.
    void beat()
    {
        const auto now = steady_clock::now();
        if (now - last_sent_ < time_between_beats)
            return;
        last_sent_ = now;
        send_some(bytes_of({message_kind::beat, {}}), MSG_DONTWAIT);
    }

    /// The descriptor that came last.
    file_descriptor taken_descriptor() { return std::exchange(descriptor_, file_descriptor()); }

private:
    void receive()
    {
        std::array<char, 65'536> bytes = {};
        iovec part = {bytes.data(), bytes.size()};
        alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control = {};
        msghdr header = {};
        header.msg_iov = &part;
        header.msg_iovlen = 1;
        header.msg_control = control.data();
        header.msg_controllen = control.size();
        const ssize_t count = recvmsg(socket_, &header, MSG_CMSG_CLOEXEC);
        if (count == 0 || (count < 0 && errno != EINTR))
            throw hung_up();
        if (count < 0)
            return;
        const cmsghdr* sent_with = CMSG_FIRSTHDR(&header);
        if (sent_with != nullptr && sent_with->cmsg_type == SCM_RIGHTS) {
            int number = -1;
            std::memcpy(&number, CMSG_DATA(sent_with), sizeof number);
            descriptor_ = file_descriptor(number);
        }
        incoming_.add({bytes.data(), static_cast<std::size_t>(count)});
    }

    std::size_t send_some(std::string_view bytes, int flags) const
    {
        // sendmsg reads what it is given, but is declared for both directions.
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
        iovec part = {const_cast<char*>(bytes.data()), bytes.size()};
        msghdr header = {};
        header.msg_iov = &part;
        header.msg_iovlen = 1;
        const ssize_t count = sendmsg(socket_, &header, MSG_NOSIGNAL | flags);
        if (count < 0 && errno != EINTR && errno != EAGAIN)
            throw hung_up();
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }

    int socket_;
    incoming_messages incoming_;
    file_descriptor descriptor_;
    steady_clock::time_point last_sent_;
};

/// The file that questions are about.
struct open_media {
    open_media(media_file opened, std::span<const media_time> times, connection& asked)
        : file(std::move(opened)), reader(out, time_limit(no_limit, [&asked] { asked.beat(); }))
    {
        std::vector<expected_frame> frames;
        for (const media_time time : times)
            frames.push_back({file.name(), time, 0});
        reader.expect(frames);
    }
    open_media(const open_media&) = delete;
    open_media& operator=(const open_media&) = delete;

    media_file file;
    no_diagnostics out;
    media_reader reader;
};

/// What fails on the way to an answer gives none, which is an answer as well. Not so a lack of memory, which
/// the libraries are left with: this process ends then, and another one goes on.
template <class Answer, class Make>
std::optional<Answer> made(Make make)
{
    try {
        return make();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::optional<message> answer_to(const message& question, std::optional<open_media>& open, connection& asked)
{
    if (question.kind == message_kind::open_file) {
        std::optional<file_to_open> file = file_in(question);
        if (!file)
            throw std::runtime_error("no file is named");
        open.emplace(media_file(file->name, asked.taken_descriptor(), file->size), file->expected, asked);
        return std::nullopt;
    }
    if (!open)
        throw std::runtime_error("no file is open");
    if (question.kind == message_kind::read_tags)
        return message_of(made<audio_tags>([&] { return tags_in_file(open->file, [&] { asked.beat(); }); }));
    if (question.kind == message_kind::read_facts)
        return message_of(made<media_facts>(
            [&] { return read_media_facts(open->file, time_limit(no_limit, [&] { asked.beat(); })); }));
    const std::optional<picture_question> wanted = question_in(question);
    if (question.kind != message_kind::make_picture || !wanted)
        throw std::runtime_error("this is no question");
    return message_of(made<jpeg_picture>(
        [&] { return clip_picture(open->reader, open->file, wanted->time, wanted->width); }));
}

} // namespace

bool answer_questions(int socket)
{
    connection asked(socket);
    std::optional<open_media> open;
    try {
        asked.send({message_kind::ready, {}});
        while (true) {
            if (const std::optional<message> answer = answer_to(asked.next_message(), open, asked))
                asked.send(*answer);
        }
    } catch (const hung_up&) {
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace tallyframe
