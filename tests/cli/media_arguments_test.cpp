// SPDX-License-Identifier: MIT
#include "cli/arguments.h"
#include "cli/parsed_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe::cli {

namespace {

std::string refusal_of(const std::vector<std::string>& flags)
{
    try {
        parsed(flags);
    } catch (const usage_error& error) {
        return error.what();
    }
    return "none";
}

} // namespace

TEST(media_arguments, ask_for_no_pictures_by_default)
{
    const report_request request = parsed({});
    EXPECT_FALSE(request.options.inpoint_thumbnail_jpegs);
    EXPECT_FALSE(request.options.keep_thumbnails);
    EXPECT_TRUE(request.media_map.empty());
    EXPECT_TRUE(request.media_search.empty());
}

TEST(media_arguments, take_a_width_with_an_equals_sign_only)
{
    EXPECT_TRUE(parsed({"--thumbnails"}).options.inpoint_thumbnail_jpegs);
    EXPECT_EQ(parsed({"--thumbnails"}).options.thumbnail_width, 320);
    EXPECT_EQ(parsed({"--thumbnails=16"}).options.thumbnail_width, 16);
    EXPECT_EQ(parsed({"--thumbnails=1920"}).options.thumbnail_width, 1920);
    const report_request before_the_document =
        parse_arguments({"report", "--thumbnails", "cut.xml"}).report.value();
    EXPECT_EQ(before_the_document.document, "cut.xml");
    EXPECT_EQ(before_the_document.options.thumbnail_width, 320);
}

TEST(media_arguments, refuse_a_width_that_is_none)
{
    for (const char* flag : {"--thumbnails=15", "--thumbnails=1921", "--thumbnails=wide",
                             "--thumbnails=320px", "--thumbnails=", "--thumbnails=-320"})
        EXPECT_THAT(refusal_of({flag}), testing::HasSubstr("16 to 1920")) << flag;
}

TEST(media_arguments, keep_only_pictures_that_are_made)
{
    EXPECT_TRUE(parsed({"--thumbnails", "--keep-thumbnails"}).options.keep_thumbnails);
    EXPECT_THAT(refusal_of({"--keep-thumbnails"}), testing::HasSubstr("--thumbnails"));
}

TEST(media_arguments, split_mappings_at_the_first_equals_sign)
{
    const report_request request = parsed({"--media-map", "/A=/b=c", "--media-map", "/D E=/f"});
    ASSERT_EQ(request.media_map.size(), 2U);
    EXPECT_EQ(request.media_map[0].from, "/A");
    EXPECT_EQ(request.media_map[0].to, "/b=c");
    EXPECT_EQ(request.media_map[1].from, "/D E");
    for (const char* mapping : {"/A", "=/b", "/A="})
        EXPECT_THAT(refusal_of({"--media-map", mapping}), testing::HasSubstr("is no mapping")) << mapping;
}

TEST(media_arguments, use_the_pictures_of_earlier_reports_unless_told_otherwise)
{
    EXPECT_TRUE(parsed({}).picture_store);
    EXPECT_FALSE(parsed({"--no-cache"}).picture_store);
}

TEST(media_arguments, read_tags_unless_told_otherwise)
{
    EXPECT_TRUE(parsed({}).options.audio_tags);
    EXPECT_FALSE(parsed({"--no-tags"}).options.audio_tags);
}

TEST(media_arguments, bound_the_memory)
{
    EXPECT_EQ(parsed({}).media_memory, 0U);
    EXPECT_EQ(parsed({"--memory", "800M"}).media_memory, 800ULL << 20U);
    EXPECT_EQ(parsed({"--memory=2G"}).media_memory, 2ULL << 30U);
    for (const std::string size :
         {"", "2", "127M", "0G", "-1G", "2T", "2GB", "M", "9999999999G", "99999999999999999999G"}) {
        EXPECT_EQ(
            refusal_of({"--memory=" + size}),
            "--memory: \"" + size
                + "\" is no size from 128M on. Write a whole number and M or G, such as --memory 800M or "
                  "--memory 2G.");
    }
}

TEST(media_arguments, search_folders_that_are_there)
{
    const report_request request = parsed({"--media-search", "/", "--media-search", "/tmp"});
    EXPECT_EQ(request.media_search, (std::vector<std::filesystem::path>{"/", "/tmp"}));
    EXPECT_THAT(refusal_of({"--media-search", "/nowhere"}),
                testing::HasSubstr("there is no folder \"/nowhere\""));
}

} // namespace tallyframe::cli
