// SPDX-License-Identifier: MIT
#include "timecode/display_format.h"

#include <gtest/gtest.h>

namespace tallyframe {

namespace {

TEST(display_format_of, knows_two_texts_to_the_letter)
{
    EXPECT_EQ(display_format_of("DF"), display_format::drop_frame);
    EXPECT_EQ(display_format_of("NDF"), display_format::non_drop_frame);
    for (const char* text : {"", "ndf", "df", "NDF ", "drop"})
        EXPECT_EQ(display_format_of(text), display_format::unknown) << text;
}

} // namespace

} // namespace tallyframe
