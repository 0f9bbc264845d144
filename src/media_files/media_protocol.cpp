// SPDX-License-Identifier: MIT
#include "media_files/media_protocol.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace tallyframe {

namespace {

constexpr std::size_t header_size = sizeof(std::uint32_t) + 1;

class content_writer {
public:
    void number(std::int64_t value) { bytes_.append(reinterpret_cast<const char*>(&value), sizeof value); }
    void text(std::string_view value)
    {
        number(static_cast<std::int64_t>(value.size()));
        bytes_ += value;
    }
    void optional_number(const std::optional<std::int64_t>& value)
    {
        number(value.has_value() ? 1 : 0);
        number(value.value_or(0));
    }
    void optional_fraction(const std::optional<double>& value)
    {
        optional_number(value ? std::optional(std::bit_cast<std::int64_t>(*value)) : std::nullopt);
    }
    void time(media_time value)
    {
        number(value.value);
        number(value.timescale);
    }
    message sent_as(message_kind kind) { return {kind, std::move(bytes_)}; }

private:
    std::string bytes_;
};

/// Reads to the first fault and gives zeros and empty texts from there on.
class content_reader {
public:
    explicit content_reader(std::string_view bytes) : bytes_(bytes) { }

    bool is_read_whole() const { return is_good_ && bytes_.empty(); }

    std::int64_t number()
    {
        std::int64_t value = 0;
        const std::string_view stored = taken(sizeof value);
        std::memcpy(&value, stored.data(), stored.size());
        return value;
    }
    std::string text()
    {
        const std::int64_t length = number();
        return std::string(taken(length >= 0 ? static_cast<std::size_t>(length) : bytes_.size() + 1));
    }
    std::optional<std::int64_t> optional_number()
    {
        const bool is_there = number() != 0;
        const std::int64_t value = number();
        return is_there ? std::optional(value) : std::nullopt;
    }
    std::optional<double> optional_fraction()
    {
        const std::optional<std::int64_t> value = optional_number();
        const auto fraction = std::bit_cast<double>(value.value_or(0));
        is_good_ = is_good_ && std::isfinite(fraction);
        return value && is_good_ ? std::optional(fraction) : std::nullopt;
    }
    std::optional<int> optional_count()
    {
        const std::optional<std::int64_t> value = optional_number();
        is_good_ = is_good_ && (!value || (*value >= 0 && *value <= std::numeric_limits<int>::max()));
        return value && is_good_ ? std::optional(static_cast<int>(*value)) : std::nullopt;
    }
    media_time time()
    {
        const std::int64_t value = number();
        const std::int64_t timescale = number();
        is_good_ = is_good_ && timescale > 0;
        return {value, timescale};
    }
    int number_from_1_to(int most)
    {
        const std::int64_t value = number();
        is_good_ = is_good_ && value >= 1 && value <= most;
        return is_good_ ? static_cast<int>(value) : 1;
    }
    std::string_view rest() { return taken(bytes_.size()); }
    void fail() { is_good_ = false; }
    bool is_good() const { return is_good_; }

private:
    std::string_view taken(std::size_t count)
    {
        is_good_ = is_good_ && count <= bytes_.size();
        const std::string_view part = bytes_.substr(0, is_good_ ? count : 0);
        bytes_.remove_prefix(part.size());
        return part;
    }

    std::string_view bytes_;
    bool is_good_ = true;
};

bool is_whole_jpeg(std::string_view bytes)
{
    return bytes.starts_with("\xFF\xD8\xFF") && bytes.ends_with("\xFF\xD9");
}

} // namespace

message message_of(const file_to_open& file)
{
    content_writer content;
    content.number(static_cast<std::int64_t>(file.size));
    content.text(file.name);
    const bool is_too_much = file.expected.size() > most_expected_times;
    content.number(is_too_much ? 0 : static_cast<std::int64_t>(file.expected.size()));
    if (!is_too_much) {
        for (const media_time time : file.expected)
            content.time(time);
    }
    return content.sent_as(message_kind::open_file);
}

message message_of(const picture_question& question)
{
    content_writer content;
    content.time(question.time);
    content.number(question.width);
    return content.sent_as(message_kind::make_picture);
}

message message_of(const std::optional<jpeg_picture>& picture)
{
    content_writer content;
    if (!picture)
        return content.sent_as(message_kind::picture);
    content.number(picture->width);
    content.number(picture->height);
    message made = content.sent_as(message_kind::picture);
    made.content.append(picture->bytes.begin(), picture->bytes.end());
    return made;
}

message message_of(const std::optional<audio_tags>& tags)
{
    content_writer content;
    if (!tags)
        return content.sent_as(message_kind::tags);
    for (const std::string* text : {&tags->song_title, &tags->album, &tags->musical_genre, &tags->authors,
                                    &tags->composer, &tags->producer})
        content.text(*text);
    content.optional_number(tags->track_number);
    content.optional_number(tags->year);
    return content.sent_as(message_kind::tags);
}

message message_of(const std::optional<media_facts>& facts)
{
    content_writer content;
    if (!facts)
        return content.sent_as(message_kind::facts);
    for (const auto* fraction : {&facts->duration, &facts->frames_per_second, &facts->start_seconds})
        content.optional_fraction(*fraction);
    const std::optional<pixel_size>& size = facts->frame_size;
    content.optional_number(size ? std::optional<std::int64_t>(size->width) : std::nullopt);
    content.optional_number(size ? std::optional<std::int64_t>(size->height) : std::nullopt);
    content.optional_number(facts->audio_channels);
    content.text(facts->start_timecode);
    return content.sent_as(message_kind::facts);
}

std::optional<file_to_open> file_in(const message& received)
{
    content_reader content(received.content);
    file_to_open file;
    const std::int64_t size = content.number();
    file.size = static_cast<std::uint64_t>(size);
    file.name = content.text();
    const std::int64_t count = content.number();
    if (size < 0 || count < 0 || count > static_cast<std::int64_t>(most_expected_times))
        return std::nullopt;
    for (std::int64_t i = 0; i < count && content.is_good(); ++i)
        file.expected.push_back(content.time());
    return content.is_read_whole() ? std::optional(std::move(file)) : std::nullopt;
}

std::optional<picture_question> question_in(const message& received)
{
    content_reader content(received.content);
    picture_question question;
    question.time = content.time();
    question.width = content.number_from_1_to(largest_picture_side);
    return content.is_read_whole() ? std::optional(question) : std::nullopt;
}

std::optional<picture_answer> picture_in(const message& received)
{
    if (received.content.empty())
        return picture_answer{};
    content_reader content(received.content);
    jpeg_picture picture;
    picture.width = content.number_from_1_to(largest_picture_side);
    picture.height = content.number_from_1_to(largest_picture_side);
    const std::string_view bytes = content.rest();
    if (!content.is_good() || !is_whole_jpeg(bytes))
        return std::nullopt;
    picture.bytes.assign(bytes.begin(), bytes.end());
    return picture_answer{std::move(picture)};
}

std::optional<tags_answer> tags_in(const message& received)
{
    if (received.content.empty())
        return tags_answer{};
    content_reader content(received.content);
    audio_tags tags;
    for (std::string* text :
         {&tags.song_title, &tags.album, &tags.musical_genre, &tags.authors, &tags.composer, &tags.producer})
        *text = content.text();
    tags.track_number = content.optional_number();
    tags.year = content.optional_number();
    return content.is_read_whole() ? std::optional(tags_answer{std::move(tags)}) : std::nullopt;
}

std::optional<facts_answer> facts_in(const message& received)
{
    if (received.content.empty())
        return facts_answer{};
    content_reader content(received.content);
    media_facts facts;
    for (auto* fraction : {&facts.duration, &facts.frames_per_second, &facts.start_seconds})
        *fraction = content.optional_fraction();
    const std::optional<int> width = content.optional_count();
    const std::optional<int> height = content.optional_count();
    if (width && height)
        facts.frame_size = pixel_size{*width, *height};
    facts.audio_channels = content.optional_count();
    facts.start_timecode = content.text();
    return content.is_read_whole() ? std::optional(facts_answer{std::move(facts)}) : std::nullopt;
}

std::string bytes_of(const message& sent)
{
    if (sent.content.size() > most_content_bytes)
        throw std::runtime_error("a message is too long");
    const auto length = static_cast<std::uint32_t>(sent.content.size());
    std::string bytes(reinterpret_cast<const char*>(&length), sizeof length);
    bytes += static_cast<char>(sent.kind);
    return bytes + sent.content;
}

std::optional<message> incoming_messages::next()
{
    if (bytes_.size() < header_size)
        return std::nullopt;
    std::uint32_t length = 0;
    std::memcpy(&length, bytes_.data(), sizeof length);
    const auto kind = static_cast<std::uint8_t>(bytes_[sizeof length]);
    if (length > most_content_bytes || kind > static_cast<std::uint8_t>(last_message_kind))
        throw std::runtime_error("a message is none");
    if (bytes_.size() - header_size < length)
        return std::nullopt;
    message whole = {static_cast<message_kind>(kind), bytes_.substr(header_size, length)};
    bytes_.erase(0, header_size + length);
    return whole;
}

} // namespace tallyframe
