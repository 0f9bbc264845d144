// SPDX-License-Identifier: MIT
#include "media_files/media_protocol.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <stdexcept>

using namespace tallyframe;

namespace {

message received(const message& sent)
{
    incoming_messages incoming;
    incoming.add(bytes_of(sent));
    return incoming.next().value();
}

const jpeg_picture small_picture = {320, 180, {0xFF, 0xD8, 0xFF, 1, 2, 0xFF, 0xD9}};

TEST(media_protocol, carries_files_and_questions)
{
    const file_to_open file = {"Zoë 1.mov", 1ULL << 40U, {{1001, 30000}, {-1, 25}}};
    EXPECT_EQ(file_in(received(message_of(file))), file);
    const picture_question question = {{1001, 30000}, 320};
    EXPECT_EQ(question_in(received(message_of(question))), question);
}

TEST(media_protocol, carries_answers_and_that_there_is_none)
{
    EXPECT_EQ(picture_in(received(message_of(std::optional(small_picture))))->picture, small_picture);
    EXPECT_EQ(picture_in(received(message_of(std::optional<jpeg_picture>())))->picture, std::nullopt);
    const audio_tags tags = {.song_title = "Light",
                             .album = std::string(100'000, 'a'),
                             .track_number = 7,
                             .year = std::nullopt,
                             .musical_genre = "",
                             .authors = "Zoë\nKeene",
                             .composer = "Ann",
                             .producer = "Bo"};
    EXPECT_EQ(tags_in(received(message_of(std::optional(tags))))->tags, tags);
    EXPECT_EQ(tags_in(received(message_of(std::optional<audio_tags>())))->tags, std::nullopt);
}

TEST(media_protocol, carries_facts_of_media)
{
    media_facts facts = {.duration = 10.5,
                         .frames_per_second = 24000 / 1001.0,
                         .frame_size = pixel_size{1920, 1080},
                         .start_timecode = "01:00:00;00",
                         .start_seconds = 3600,
                         .audio_channels = 8};
    EXPECT_EQ(facts_in(received(message_of(std::optional(facts))))->facts, facts);
    facts = {};
    EXPECT_EQ(facts_in(received(message_of(std::optional(facts))))->facts, facts);
    EXPECT_EQ(facts_in(received(message_of(std::optional<media_facts>())))->facts, std::nullopt);
    facts.duration = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(facts_in(received(message_of(std::optional(facts))))) << "no file lasts for ever";
    facts = {};
    facts.frame_size = pixel_size{-1, 1};
    EXPECT_FALSE(facts_in(received(message_of(std::optional(facts)))));
}

TEST(media_protocol, opens_a_file_with_too_many_times_without_any)
{
    file_to_open file = {"a.mov", 1, std::vector<media_time>(most_expected_times + 1)};
    EXPECT_TRUE(file_in(received(message_of(file)))->expected.empty());
    file.expected.resize(most_expected_times);
    EXPECT_EQ(file_in(received(message_of(file)))->expected.size(), most_expected_times);
}

TEST(media_protocol, puts_messages_together_from_any_pieces)
{
    const std::string bytes =
        bytes_of(message_of(std::optional(small_picture))) + bytes_of({message_kind::beat, {}});
    incoming_messages incoming;
    std::vector<message_kind> kinds;
    for (const char byte : bytes) {
        incoming.add({&byte, 1});
        while (const auto whole = incoming.next())
            kinds.push_back(whole->kind);
    }
    EXPECT_EQ(kinds, (std::vector{message_kind::picture, message_kind::beat}));
}

TEST(media_protocol, refuses_messages_that_are_too_long_or_of_no_kind)
{
    const auto header = [](std::uint32_t length, char kind) {
        std::string bytes(reinterpret_cast<const char*>(&length), sizeof length);
        return bytes + kind;
    };
    for (const std::string& bytes : {header(most_content_bytes + 1, 5), header(UINT32_MAX, 0),
                                     header(0, static_cast<char>(last_message_kind) + 1)}) {
        incoming_messages incoming;
        incoming.add(bytes);
        EXPECT_THROW(incoming.next(), std::runtime_error);
    }
}

TEST(media_protocol, believes_no_content_that_is_cut_short_or_too_long)
{
    const message whole_ones[] = {
        message_of(file_to_open{"a.mov", 7, {{1, 25}, {2, 25}}}),
        message_of(picture_question{{1, 25}, 320}),
        message_of(std::optional(audio_tags{.song_title = "Light",
                                            .album = "",
                                            .track_number = 7,
                                            .year = 1999,
                                            .musical_genre = "",
                                            .authors = "",
                                            .composer = "",
                                            .producer = "Bo"})),
    };
    const auto is_understood = [](const message& sent) {
        switch (sent.kind) {
        case message_kind::open_file:
            return file_in(sent).has_value();
        case message_kind::make_picture:
            return question_in(sent).has_value();
        default:
            return tags_in(sent).has_value();
        }
    };
    for (const message& whole : whole_ones) {
        EXPECT_TRUE(is_understood(whole));
        for (std::size_t length = 1; length < whole.content.size(); ++length)
            EXPECT_FALSE(is_understood({whole.kind, whole.content.substr(0, length)})) << length;
        EXPECT_FALSE(is_understood({whole.kind, whole.content + "x"}));
        for (std::size_t at = 0; at < whole.content.size(); at += 8) {
            message changed = whole;
            const std::int64_t huge = INT64_MAX;
            std::memcpy(changed.content.data() + at, &huge,
                        std::min<std::size_t>(8, whole.content.size() - at));
            static_cast<void>(is_understood(changed)); // and no harm done
        }
    }
}

TEST(media_protocol, believes_no_picture_that_is_none)
{
    const auto with = [](int width, int height, std::vector<std::uint8_t> bytes) {
        return message_of(std::optional(jpeg_picture{width, height, std::move(bytes)}));
    };
    EXPECT_TRUE(picture_in(with(320, 180, small_picture.bytes)));
    EXPECT_FALSE(picture_in(with(0, 180, small_picture.bytes)));
    EXPECT_FALSE(picture_in(with(320, -1, small_picture.bytes)));
    EXPECT_FALSE(picture_in(with(320, 70'000, small_picture.bytes)));
    EXPECT_FALSE(picture_in(with(320, 180, {})));
    EXPECT_FALSE(picture_in(with(320, 180, {'B', 'M', 0, 0, 0xFF, 0xD9})));
    EXPECT_FALSE(picture_in(with(320, 180, {0xFF, 0xD8, 0xFF, 1, 2})));
}

} // namespace
