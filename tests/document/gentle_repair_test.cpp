// SPDX-License-Identifier: MIT
#include "document/gentle_repair.h"
#include "support/counting_progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using testing::ElementsAre;

gently_mended_text mended(std::string_view text)
{
    no_progress display;
    return gently_mended(text, display);
}

TEST(gently_mended, reads_letters_of_windows_1252_where_there_are_none_of_utf_8)
{
    const gently_mended_text names = mended("Jos\xE9 & Malm\xF6, \x93\xC5ngstr\xF6m\x94 \x80 5");
    EXPECT_EQ(names.text, "José & Malmö, “Ångström” € 5");
    EXPECT_EQ(names.reread, 7U);
    EXPECT_EQ(names.dropped.count, 0U);
}

TEST(gently_mended, drops_bytes_that_windows_1252_has_no_letter_for)
{
    const gently_mended_text text = mended("a\x81\x8D\x8F\x90\x9D\xE9\n");
    EXPECT_EQ(text.text, "aé\n");
    EXPECT_EQ(text.dropped.count, 5U);
}

TEST(gently_mended, drops_only_the_bad_bytes_where_other_letters_are_utf_8)
{
    const gently_mended_text text = mended("José\nJos\xE9</name>\n\xC3\xA9\xFF\xED\xA0\x80z");
    EXPECT_EQ(text.text, "José\nJos</name>\néz");
    EXPECT_EQ(text.reread, 0U);
    EXPECT_EQ(text.dropped.count, 5U);
    EXPECT_EQ(text.dropped.line_count, 2U);
    EXPECT_THAT(text.dropped.first_lines, ElementsAre(2, 3));
}

TEST(gently_mended, drops_control_characters_and_keeps_line_breaks)
{
    EXPECT_EQ(mended("a\x01\tb\r\n\x7F\fc\n\n").text, "a\tb\r\nc\n\n");
    EXPECT_EQ(mended("\xEF\xBB\xBFJos\xE9").text, "José") << "the byte order mark alone is no letter";
}

TEST(gently_mended, can_be_stopped)
{
    testing_support::counting_progress display;
    display.stop_at_look = 1;
    EXPECT_THROW(gently_mended("a", display), run_cancelled);
}

TEST(may_be_utf8, is_what_says_so_or_says_nothing)
{
    EXPECT_TRUE(may_be_utf8("<?xml version=\"1.0\"?><xmeml/>"));
    EXPECT_TRUE(may_be_utf8("<?xml version=\"1.0\" encoding=\"utf-8\"?><xmeml/>"));
    EXPECT_TRUE(may_be_utf8("<xmeml encoding=\"ISO-8859-1\"/>")) << "it is no declaration";
    EXPECT_FALSE(may_be_utf8("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><xmeml/>"));
    EXPECT_FALSE(may_be_utf8("\xFF\xFE<"));
}

} // namespace

} // namespace tallyframe
