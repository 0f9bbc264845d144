// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio_tag_reader.h"
#include "platform/media_facts.h"
#include "platform/thumbnailer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// How the program and a helper that reads media for it (tallyframe-media) speak with each other: over a
// socket pair that the helper has as its standard input. Nothing that a helper says is believed unseen: the
// media that it has read may have taken it over.
//
//     message     length of the content (4 bytes), kind (1 byte), content
//
//     to the helper
//     open_file     size, name, count, that many times: the file that the next questions are about. Its
//                   descriptor comes with the first byte of the message.
//     make_picture  time, width
//     read_tags     nothing
//     read_facts    nothing
//
//     from the helper
//     ready         nothing: once, when it can no longer do anything but read what it is given
//     beat          nothing: the work on the oldest question goes on
//     picture       width, height, the bytes of a JPEG file; nothing when the file gives no picture
//     tags          6 texts, 2 numbers that may be absent; nothing when nothing is known of the file
//     facts         3 fractions and 3 numbers that may be absent, a text; nothing when the file is no media
//
// Numbers are stored as the machine stores them, with 8 bytes; a text has its length in front of it. Each
// question gets one answer, in the order of the questions.

namespace tallyframe {

enum class message_kind : std::uint8_t {
    open_file,
    make_picture,
    read_tags,
    read_facts,
    ready,
    beat,
    picture,
    tags,
    facts,
};
inline constexpr message_kind last_message_kind = message_kind::facts;

struct message {
    message_kind kind = message_kind::ready;
    std::string content;

    bool operator==(const message&) const = default;
};

struct file_to_open {
    std::string name; ///< the file's, without its folder
    std::uint64_t size = 0; ///< bytes
    std::vector<media_time> expected; ///< what will be asked for, so that it can be read in one go

    bool operator==(const file_to_open&) const = default;
};

struct picture_question {
    media_time time;
    int width = 0;

    bool operator==(const picture_question&) const = default;
};

/// A file with more expected times than this is opened without any.
inline constexpr std::size_t most_expected_times = 50'000;

/// The longest content of a message in either direction.
inline constexpr std::size_t most_content_bytes = 16U << 20U;

/// The largest picture, on either side, that a helper may send.
inline constexpr int largest_picture_side = 65'535;

message message_of(const file_to_open& file);
message message_of(const picture_question& question);
message message_of(const std::optional<jpeg_picture>& picture);
message message_of(const std::optional<audio_tags>& tags);
message message_of(const std::optional<media_facts>& facts);

/// What a message holds; nothing when it does not hold what its kind says.
std::optional<file_to_open> file_in(const message& received);
std::optional<picture_question> question_in(const message& received);

/// An answer, which may be that there is none.
struct picture_answer {
    std::optional<jpeg_picture> picture;
};
struct tags_answer {
    std::optional<audio_tags> tags;
};
struct facts_answer {
    std::optional<media_facts> facts;
};
std::optional<picture_answer> picture_in(const message& received);
std::optional<tags_answer> tags_in(const message& received);
std::optional<facts_answer> facts_in(const message& received);

/// The bytes that a message is sent as.
std::string bytes_of(const message& sent);

/// Puts messages together out of the bytes that come.
class incoming_messages {
public:
    void add(std::string_view bytes) { bytes_ += bytes; }

    /// The next whole message. Throws std::runtime_error for one that is too long or of no known kind.
    std::optional<message> next();

private:
    std::string bytes_;
};

} // namespace tallyframe
