// SPDX-License-Identifier: MIT
// What the window says of a document that it cannot report.
#include "support/xmeml_builder.h"
#include "window/main_menu.h"
#include "window/main_window_fixture.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QLabel>

namespace tallyframe::window {

namespace {

using tallyframe::testing_support::clip;
using tallyframe::testing_support::xmeml;

namespace fs = std::filesystem;

const fs::path night_market = fs::path(EXAMPLES) / "night-market-premiere.xml";

class main_window_failures : public main_window_test { };

} // namespace

TEST_F(main_window_failures, says_that_a_broken_document_is_broken_and_stays_usable)
{
    open(night_market);
    open_text(R"(<?xml version="1.0"?><xmeml version="5"><sequence)");
    EXPECT_EQ(alert(),
              std::pair(std::string("This XML file is incomplete or broken"),
                        std::string("Please export the XML file again.")));
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").count(), 0);
    EXPECT_EQ(rows_of("videoTracksTableView"), 0);
    EXPECT_EQ(rows_of("previewTableView"), 0);
    EXPECT_FALSE(find<QAbstractButton>("saveReportButton").isEnabled());
    open(night_market);
    EXPECT_EQ(alert().first, "");
    EXPECT_EQ(rows_of("videoTracksTableView"), 4);
}

TEST_F(main_window_failures, says_that_a_file_is_no_timeline)
{
    open_text("");
    EXPECT_EQ(alert(),
              std::pair(std::string("This is not a Final Cut Pro XML file"),
                        std::string("Please choose an XML file exported from\nPremiere Pro CC or Final "
                                    "Cut Pro.")));
}

TEST_F(main_window_failures, says_why_a_document_is_refused)
{
    std::string begins;
    std::string ends;
    for (int i = 0; i < 300; ++i) {
        begins += "<bin>";
        ends += "</bin>";
    }
    open_text("<xmeml>" + begins + ends + "</xmeml>");
    EXPECT_EQ(alert(),
              std::pair(std::string("This XML file cannot be opened"),
                        std::string("The document nests elements more than 256 deep. Please export a simpler "
                                    "sequence.")));
}

TEST_F(main_window_failures, asks_to_report_an_unexpected_failure_of_the_catalogue)
{
    open_text(R"(<xmeml version="5"><sequence id="s"><uuid>one</uuid></sequence></xmeml>)");
    const auto [message, information] = alert();
    EXPECT_EQ(message, "There was a problem converting this XML");
    EXPECT_THAT(information,
                ::testing::StartsWith("Please zip up the XML file and email it with the subject "
                                      "“Tallyframe 1.0 error” to "));
    EXPECT_THAT(information, ::testing::EndsWith("\n\n\tThanks for helping us improve Tallyframe!"));
}

TEST_F(main_window_failures, asks_to_report_a_failure_of_the_analysis)
{
    open_text(xmeml().sequence("Odd", {.timebase = 17}).video_track({clip("A")}).text());
    const auto [message, information] = alert();
    EXPECT_EQ(message, "There was a problem converting this XML");
    EXPECT_THAT(information, ::testing::HasSubstr("\n\n\tThis sequence has no timebase\n\n\t"));
    EXPECT_EQ(rows_of("videoTracksTableView"), 0);
    EXPECT_FALSE(find<QAbstractButton>("saveReportButton").isEnabled());
}

TEST_F(main_window_failures, explains_a_document_without_anything_to_report)
{
    open_text("<other/>");
    EXPECT_EQ(alert().first, "");
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "There is nothing to report in this file");
    EXPECT_FALSE(find<QComboBox>("sequencesPopupMenu").isEnabled());
    EXPECT_FALSE(find<QAbstractButton>("analyzeButton").isEnabled());
}

TEST_F(main_window_failures, tells_of_a_recent_document_that_is_gone)
{
    const fs::path document = write("gone.xml", two_sequences());
    open(document);
    fs::remove(document);
    emit find<main_menu>("mainMenu").document_chosen(qt_path(document));
    EXPECT_EQ(alert().first, "gone.xml is not there any more");
    EXPECT_TRUE(window->kept_choices().recent_documents.isEmpty());
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").count(), 2) << "what is open stays open";
}

} // namespace tallyframe::window
