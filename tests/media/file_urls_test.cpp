// SPDX-License-Identifier: MIT
#include "media/file_urls.h"

#include <gtest/gtest.h>

namespace tallyframe {

namespace {

TEST(path_of_url, decodes_the_path_of_a_file_url)
{
    EXPECT_EQ(path_of_url("file://localhost/Volumes/Media/My%20Clip?.mov"), "/Volumes/Media/My Clip?.mov");
    EXPECT_EQ(path_of_url("file://localhost/Volumes/Media/a.mov"), "/Volumes/Media/a.mov");
    EXPECT_EQ(path_of_url("file:///Volumes/Media/a.mov"), "/Volumes/Media/a.mov");
    EXPECT_EQ(path_of_url("file:///Users/Shared/a.mov"), "/Users/Shared/a.mov");
    EXPECT_EQ(path_of_url("file://localhost/C%3a/Media/a.mov"), "/C:/Media/a.mov");
    EXPECT_EQ(path_of_url("file://localhost"), "");
}

TEST(path_of_url, gives_back_every_character_of_a_name)
{
    for (const std::string name :
         {"#1 take.mov", "50% off.mov", "a&b;c=d+e,f$g!'()*.mov", "é ü 漢字.mov", "e\xCC\x81.mov",
          "[1] {2} <3> |4| ^5 `6 \"7.mov", "a\\b.mov", "12:30.mov", "q?x=1#y"})
        EXPECT_EQ(path_of_url("file://localhost/M/" + name), "/M/" + name);
    EXPECT_EQ(path_of_url("file://localhost/100%25.mov"), "/100%.mov");
    EXPECT_EQ(path_of_url("file://localhost/%23%3F%c3%A9.mov"), "/#?é.mov");
}

TEST(path_of_url, keeps_a_percent_sign_that_starts_no_escape)
{
    EXPECT_EQ(path_of_url("file://localhost/50%.mov"), "/50%.mov");
    EXPECT_EQ(path_of_url("file://localhost/50%zz.mov"), "/50%zz.mov");
    EXPECT_EQ(path_of_url("file://localhost/50%2"), "/50%2");
}

TEST(path_of_url, removes_dot_segments)
{
    EXPECT_EQ(path_of_url("file://localhost/a/./b/../c.mov"), "/a/c.mov");
    EXPECT_EQ(path_of_url("file://localhost/../../c.mov"), "/c.mov");
    EXPECT_EQ(path_of_url("file://localhost/a/%2E%2E/c.mov"), "/c.mov");
    EXPECT_EQ(path_of_url("//localhost/../a/../../c.mov"), "/c.mov");
}

TEST(path_of_url, takes_a_text_without_a_scheme_as_a_relative_path)
{
    EXPECT_EQ(path_of_url("clip.mov"), "clip.mov");
    EXPECT_EQ(path_of_url("media/my%20clip.mov"), "media/my clip.mov");
    EXPECT_EQ(path_of_url("./media/clip.mov"), "media/clip.mov");
    EXPECT_EQ(path_of_url("../media/a/../clip.mov"), "../media/clip.mov");
    EXPECT_EQ(path_of_url("Take 1: wide.mov"), "Take 1: wide.mov");
    EXPECT_EQ(path_of_url("12:30.mov"), "12:30.mov");
    EXPECT_EQ(path_of_url("/Media/clip.mov"), "/Media/clip.mov");
    EXPECT_EQ(path_of_url(""), "");
}

TEST(path_of_url, drops_blanks_and_line_breaks_around_the_url)
{
    EXPECT_EQ(path_of_url("\n\t\tfile://localhost/a.mov\r\n"), "/a.mov");
    EXPECT_EQ(path_of_url("  file://localhost/My clip.mov "), "/My clip.mov");
    EXPECT_EQ(path_of_url("file://localhost/a.mov%20"), "/a.mov ") << "a blank that is written out is meant";
}

TEST(path_of_url, gives_nothing_for_bytes_that_are_not_utf8_once_decoded)
{
    EXPECT_EQ(path_of_url("file://localhost/%E9t%E9.mov"), std::nullopt);
    EXPECT_EQ(path_of_url("file://localhost/%C0%AF.mov"), std::nullopt);
    EXPECT_EQ(path_of_url("file://localhost/%ED%A0%80.mov"), std::nullopt);
    EXPECT_EQ(path_of_url("file://localhost/a%00b.mov"), std::nullopt);
}

TEST(path_of_url, gives_nothing_for_what_is_no_url)
{
    EXPECT_EQ(path_of_url("file://a:b:c/clip.mov"), std::nullopt);
}

TEST(path_of_url, survives_endless_names)
{
    const std::string name(1'000'000, 'x');
    EXPECT_EQ(path_of_url("file://localhost/" + name), "/" + name);
    std::string segments;
    for (int i = 0; i < 200'000; ++i)
        segments += "/a";
    EXPECT_EQ(path_of_url("file://localhost" + segments), segments);
    EXPECT_EQ(path_of_url(std::string(50'000'000, 'x')), std::nullopt);
}

TEST(last_path_component, ignores_a_trailing_slash)
{
    EXPECT_EQ(last_path_component("/Volumes/Media/a.mov"), "a.mov");
    EXPECT_EQ(last_path_component("/Volumes/Media/"), "Media");
    EXPECT_EQ(last_path_component("/Volumes/Media//"), "Media");
    EXPECT_EQ(last_path_component("/"), "");
    EXPECT_EQ(last_path_component("a.mov"), "a.mov");
    EXPECT_EQ(last_path_component(""), "");
}

} // namespace

} // namespace tallyframe
