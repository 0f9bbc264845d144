// SPDX-License-Identifier: MIT
#include "document/character_repair.h"
#include "support/counting_progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace tallyframe {

namespace {

dropped_characters dropped_from(std::string& text)
{
    dropped_characters dropped;
    no_progress display;
    clean_all_lines(text, dropped, display);
    return dropped;
}

std::string cleaned(std::string text)
{
    dropped_from(text);
    return text;
}

std::string cleaned_in(const std::vector<int>& lines, std::string text)
{
    damaged_lines damaged;
    for (const int line : lines)
        damaged.add(line);
    dropped_characters dropped;
    no_progress display;
    clean_lines(text, damaged, dropped, display);
    return text;
}

/// The code point's bytes in UTF-8's scheme, whether it may be written so or not.
std::string encoded(std::uint32_t code_point)
{
    const auto tail = [&](unsigned shift) {
        return static_cast<char>(0x80U | ((code_point >> shift) & 0x3FU));
    };
    if (code_point < 0x80)
        return {static_cast<char>(code_point)};
    if (code_point < 0x800)
        return {static_cast<char>(0xC0U | (code_point >> 6U)), tail(0)};
    if (code_point < 0x10000)
        return {static_cast<char>(0xE0U | (code_point >> 12U)), tail(6), tail(0)};
    return {static_cast<char>(0xF0U | (code_point >> 18U)), tail(12), tail(6), tail(0)};
}

TEST(is_clean_character, accepts_every_code_point_but_controls_and_surrogates)
{
    for (std::uint32_t code_point = 0; code_point < 0x140000; ++code_point) {
        const bool is_control = (code_point < 0x20 && code_point != 9 && code_point != 10 && code_point != 13)
            || code_point == 0x7F;
        const bool is_surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
        const bool is_expected = !is_control && !is_surrogate && code_point <= 0x10FFFF;
        ASSERT_EQ(is_clean_character(encoded(code_point)), is_expected) << std::hex << code_point;
    }
}

TEST(is_clean_character, refuses_what_is_not_one_whole_sequence)
{
    const std::array<std::string_view, 12> refused = {
        "\x80",     "\xBF",         "\xC3",
        "\xE2\x82", "\xF0\x9F\x8E", "\xC0\x80",
        "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",
        "\xC3(",    "\xE2\x82(",    "\xF5\x80\x80\x80",
    };
    for (const std::string_view bytes : refused)
        EXPECT_FALSE(is_clean_character(bytes)) << bytes;
}

TEST(clean_all_lines, drops_a_bad_character_with_all_that_it_declares)
{
    EXPECT_EQ(cleaned("caf\xE9 au lait"), "cafu lait"); // a Latin-1 letter takes two bytes with it
    EXPECT_EQ(cleaned("na\xC3\xAFve \xC3(x"), "na\xC3\xAFve x");
    EXPECT_EQ(cleaned("a\x80\xFF"
                      "b"),
              "ab");
    EXPECT_EQ(cleaned("a\xED\xA0\x80"
                      "b"),
              "ab");
    EXPECT_EQ(cleaned("a\xF4\x90\x80\x80"
                      "b"),
              "ab");
}

TEST(clean_all_lines, drops_control_characters)
{
    EXPECT_EQ(cleaned(std::string("a\0b\fc\x7F"
                                  "d\x1B",
                                  8)),
              "abcd");
    EXPECT_EQ(cleaned("a\tb\r\nc"), "a\tb\r\nc");
}

TEST(clean_all_lines, lets_no_character_reach_over_the_end_of_its_line)
{
    EXPECT_EQ(cleaned("a\xE9\nb\xE9z\nc\xF0"), "a\nb\nc");
}

TEST(clean_all_lines, keeps_empty_lines_but_for_those_at_the_end)
{
    EXPECT_EQ(cleaned("\n\na\n\nb\n\n\n"), "\n\na\n\nb");
    EXPECT_EQ(cleaned("a\n\r\n"), "a\n\r");
    EXPECT_EQ(cleaned("\n\n"), "");
    EXPECT_EQ(cleaned(""), "");
}

TEST(clean_all_lines, keeps_a_line_that_loses_everything)
{
    EXPECT_EQ(cleaned("a\n\xFF\nb"), "a\n\nb");
}

TEST(clean_all_lines, changes_nothing_the_second_time)
{
    const std::string once = cleaned("a\xC3\xE9\xA9 b\n\xE9\xC3\xA9z\xFF\x80\n");
    EXPECT_EQ(cleaned(once), once);
}

TEST(clean_lines, leaves_other_lines_as_they_are)
{
    EXPECT_EQ(cleaned_in({2}, "a\xFF\nb\xFF\nc\xFF"), "a\xFF\nb\nc\xFF");
    EXPECT_EQ(cleaned_in({1, 3, 3}, "a\xFF\nb\xFF\nc\xFF"), "a\nb\xFF\nc");
}

TEST(clean_lines, takes_line_0_for_the_last_one)
{
    EXPECT_EQ(cleaned_in({0}, "a\xFF\nb\xFF\nc\xFF\n\n"), "a\xFF\nb\xFF\nc");
    EXPECT_EQ(cleaned_in({0}, "\n\n"), "");
}

TEST(clean_lines, overlooks_lines_that_are_not_there)
{
    EXPECT_EQ(cleaned_in({4, 70'000}, "a\xFF\nb\n"), "a\xFF\nb");
}

TEST(clean_all_lines, counts_what_it_drops)
{
    std::string text = "clean\n\x01\x02 \xC3\xA9\n\nCaf\xE9 x\n\xFF\n";
    const dropped_characters dropped = dropped_from(text);
    EXPECT_EQ(dropped.count, 4U); // the Latin-1 letter is one, with the two bytes that it takes along
    EXPECT_EQ(dropped.line_count, 3U);
    EXPECT_THAT(dropped.first_lines, testing::ElementsAre(2, 4, 5));
    EXPECT_EQ(dropped_from(text).count, 0U) << "the second time";
}

TEST(clean_all_lines, can_be_stopped_in_the_middle_of_a_long_line)
{
    std::string text(1'000'000, 'x');
    dropped_characters dropped;
    testing_support::counting_progress display;
    display.stop_at_look = 5;
    EXPECT_THROW(clean_all_lines(text, dropped, display), run_cancelled);
}

TEST(dropped_characters, keep_the_numbers_of_the_first_lines)
{
    dropped_characters dropped;
    for (const std::size_t line : {90U, 14U, 100U, 15U, 92U, 91U})
        dropped.add(line, 2);
    EXPECT_THAT(dropped.first_lines, testing::ElementsAre(14, 15, 90, 91, 92));
    EXPECT_EQ(dropped.line_count, 6U);
    EXPECT_EQ(dropped.count, 12U);
}

TEST(damaged_lines, are_empty_before_the_first)
{
    damaged_lines damaged;
    EXPECT_TRUE(damaged.empty());
    damaged.add(0);
    EXPECT_FALSE(damaged.empty());
}

} // namespace

} // namespace tallyframe
