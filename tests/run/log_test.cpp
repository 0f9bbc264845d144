// SPDX-License-Identifier: MIT
#include "run/gui_mode.h"
#include "run/log.h"
#include "support/kept_diagnostics.h"

#include <gtest/gtest.h>

namespace tallyframe {

namespace {

class log_in_each_host : public testing::Test {
protected:
    void TearDown() override { gui_mode = std::nullopt; }

    static std::string logged(std::optional<bool> mode)
    {
        gui_mode = mode;
        testing_support::kept_diagnostics out;
        log(out, "a \"reel\"");
        log_literal(out, "42");
        return out.text;
    }
};

TEST_F(log_in_each_host, prints_on_the_command_line)
{
    EXPECT_EQ(logged(false), "\"a \\\"reel\\\"\"\n42\n");
}

TEST_F(log_in_each_host, is_silent_in_the_window)
{
    EXPECT_EQ(logged(true), "");
}

TEST_F(log_in_each_host, prints_where_no_host_has_said_what_it_is)
{
    EXPECT_EQ(logged(std::nullopt), "\"a \\\"reel\\\"\"\n42\n");
}

TEST(debug_representation, stands_in_double_quotes)
{
    EXPECT_EQ(debug_representation(""), R"("")");
    EXPECT_EQ(debug_representation("V1"), R"("V1")");
}

TEST(debug_representation, escapes_quotes_and_backslashes)
{
    EXPECT_EQ(debug_representation(R"(C:\a "b")"), R"("C:\\a \"b\"")");
}

TEST(debug_representation, names_the_usual_control_characters_and_numbers_the_others)
{
    EXPECT_EQ(debug_representation("\n\r\t\f\v\b\a\x1b"), R"("\n\r\t\f\v\b\a\e")");
    EXPECT_EQ(debug_representation(std::string_view("\0\x01\x1f\x7f", 4)), R"("\x00\x01\x1F\x7F")");
}

TEST(debug_representation, leaves_other_letters_as_they_stand)
{
    EXPECT_EQ(debug_representation("Zoë 東京 \U0001F3AC"), "\"Zoë 東京 \U0001F3AC\"");
}

} // namespace

} // namespace tallyframe
