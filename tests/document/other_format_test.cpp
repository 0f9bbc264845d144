// SPDX-License-Identifier: MIT
#include "document/other_format.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using testing_support::write_file;

constexpr const char* what_is_read = " Tallyframe reads the XML that Premiere Pro writes with File > Export "
                                     "> Final Cut Pro XML, and Final Cut Pro 7 "
                                     "with File > Export > XML.";

} // namespace

TEST(other_format, is_told_by_the_root_element)
{
    EXPECT_EQ(
        other_format("\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!DOCTYPE fcpxml>\n<fcpxml version=\"1.9\">"),
        std::string("This is an FCPXML document (Final Cut Pro X).") + what_is_read);
    EXPECT_EQ(other_format("<!-- <xmeml> --><PremiereData Version=\"3\">"),
              std::string("This is a Premiere Pro project, unpacked.") + what_is_read);
}

TEST(other_format, is_told_by_its_first_bytes)
{
    EXPECT_EQ(other_format("\x1F\x8B\x08"),
              std::string("This is a compressed file, such as a Premiere Pro project.") + what_is_read);
    EXPECT_EQ(other_format("TITLE: REEL 1\nFCM: NON-DROP FRAME"),
              std::string("This is an edit decision list (EDL).") + what_is_read);
    EXPECT_EQ(other_format("{\n  \"OTIO_SCHEMA\": \"Timeline.1\""),
              std::string("This is an OpenTimelineIO document.") + what_is_read);
}

TEST(other_format, is_none_for_a_timeline_and_for_what_nobody_knows)
{
    EXPECT_EQ(other_format("<?xml version=\"1.0\"?><!DOCTYPE xmeml><xmeml version=\"5\"><project>"),
              std::nullopt);
    EXPECT_EQ(other_format("<svg/>"), std::nullopt);
    EXPECT_EQ(other_format("the quick brown <"), std::nullopt);
    EXPECT_EQ(other_format(""), std::nullopt);
}

TEST(other_format, is_read_from_the_beginning_of_a_file)
{
    const testing_support::temporary_folder folder;
    const std::filesystem::path list = folder.path() / "reel.edl";
    write_file(list, "TITLE: REEL 1\n" + std::string(10000, ' '));
    EXPECT_TRUE(other_format_of(list));
    EXPECT_EQ(other_format_of(folder.path()), std::nullopt);
    EXPECT_EQ(other_format_of(folder.path() / "none"), std::nullopt);
}

} // namespace tallyframe
