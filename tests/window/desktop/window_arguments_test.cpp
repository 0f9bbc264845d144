// SPDX-License-Identifier: MIT
#include "window/desktop/window_arguments.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace tallyframe::window {

TEST(window_arguments, name_the_document_to_open)
{
    EXPECT_THAT(read_window_arguments({}).document, IsEmpty());
    EXPECT_EQ(read_window_arguments({"cut.xml"}).document, "cut.xml");
    EXPECT_EQ(read_window_arguments({"--", "--cut.xml"}).document, "--cut.xml");
}

TEST(window_arguments, ask_for_help_and_version)
{
    for (const char* flag : {"--help", "-h"}) {
        const window_request request = read_window_arguments({flag});
        EXPECT_THAT(request.answer, StartsWith("tallyframe-window [DOCUMENT]\n"));
        EXPECT_THAT(request.answer, HasSubstr("tallyframe --help"));
        EXPECT_THAT(request.complaint, IsEmpty());
    }
    EXPECT_EQ(read_window_arguments({"cut.xml", "--version"}).answer, "tallyframe-window 1.0.0\n");
}

TEST(window_arguments, are_refused_where_nobody_knows_them)
{
    const window_request request = read_window_arguments({"--fast\x1b", "cut.xml"});
    EXPECT_EQ(request.complaint,
              "tallyframe-window: There is no option \"--fast<U+001B>\". `tallyframe-window --help` shows "
              "all.\n");
    EXPECT_THAT(request.document, IsEmpty());
    EXPECT_EQ(read_window_arguments({"a.xml", "b.xml"}).complaint,
              "tallyframe-window: One document can be opened at a time. Give one name only.\n");
}

TEST(window_arguments, of_qt_are_left_to_it)
{
    const window_request request = read_window_arguments(
        {"-platform", "xcb", "--style=fusion", "-reverse", "-session", "7", "-psn_0_1", "cut.xml"});
    EXPECT_EQ(request.document, "cut.xml");
    EXPECT_THAT(request.complaint, IsEmpty());
}

} // namespace tallyframe::window
