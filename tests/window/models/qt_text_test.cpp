// SPDX-License-Identifier: MIT
#include "window/models/qt_text.h"

#include <gtest/gtest.h>

namespace tallyframe::window {

TEST(qt_text, takes_texts_and_paths_over_as_they_are)
{
    EXPECT_EQ(qt_text("Zoë \xF0\x9F\x8E\xAC"), QString::fromUtf8("Zoë \xF0\x9F\x8E\xAC"));
    EXPECT_EQ(qt_path("/films/Zoë/cut.xml"), QString::fromUtf8("/films/Zoë/cut.xml"));
    EXPECT_EQ(file_path(QString::fromUtf8("/films/Zoë/cut.xml")),
              std::filesystem::path("/films/Zoë/cut.xml"));
}

TEST(shown_text, is_the_beginning_of_a_text_that_nobody_could_see_whole)
{
    EXPECT_EQ(shown_text("Reel 1"), "Reel 1");
    const QString shown = shown_text(std::string(5'000'000, 'x'));
    EXPECT_TRUE(shown.startsWith("xxx"));
    EXPECT_LT(shown.size(), 1'010);
}

TEST(tool_tip_text, shows_what_looks_like_markup_as_it_is)
{
    EXPECT_EQ(tool_tip_text("/films/cut.xml"), "/films/cut.xml");
    EXPECT_EQ(tool_tip_text("<b>cut</b>.xml"), "<p>&lt;b&gt;cut&lt;/b&gt;.xml</p>");
}

TEST(title_text, shows_a_star_in_brackets_as_it_is)
{
    EXPECT_EQ(title_text("cut.xml"), "cut.xml");
    EXPECT_EQ(title_text("cut [*] new [*].xml"), "cut [*][*] new [*][*].xml");
}

} // namespace tallyframe::window
