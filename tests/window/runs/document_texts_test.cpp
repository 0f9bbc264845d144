// SPDX-License-Identifier: MIT
#include "support/analyzed_document.h"
#include "support/temporary_folder.h"
#include "window/patience.h"
#include "window/runs/document_texts.h"

#include <gtest/gtest.h>

#include <QTest>
#include <fstream>

namespace tallyframe::window {

namespace {

using testing_support::analysis_of;
using testing_support::clip;
using testing_support::sequence_options;
using testing_support::xmeml;

std::string summary(const sequence_options& options)
{
    return summary_of(analysis_of(xmeml().sequence("Reel", options).video_track({clip("A")})), "Reel")
        .toStdString();
}

std::string all(const page_texts& texts)
{
    return (texts.headline + " | " + texts.text + (texts.offers_open ? " | open" : "")).toStdString();
}

/// What the page says after a document was opened, or a try at it.
std::string message_after(const std::string& document)
{
    const testing_support::temporary_folder folder;
    std::ofstream(folder.path() / "cut.xml") << document;
    no_diagnostics out;
    session_runner runner(out);
    runner.open(folder.path() / "cut.xml", report_scope::video_audio);
    EXPECT_EQ(all(texts_of_message(runner, {})), "Reading… | ");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !runner.is_running(); }, patience));
    return all(texts_of_message(runner, {}));
}

} // namespace

TEST(summary, tells_what_the_document_says_of_the_sequence)
{
    EXPECT_EQ(summary({}), "Reel  ·  25 fps");
    EXPECT_EQ(summary({.timebase = 30, .ntsc = "TRUE", .displayformat = "DF"}),
              "Reel  ·  29.97 fps drop frame");
    EXPECT_EQ(summary({.timebase = 24, .ntsc = "TRUE"}), "Reel  ·  23.976 fps");
    analysis_result analysis = analysis_of(xmeml().sequence("Reel").video_track({clip("A")}));
    analysis.sequence_width = "1920";
    EXPECT_EQ(summary_of(analysis, "Reel"), "Reel  ·  25 fps") << "a width alone is no size";
    analysis.sequence_height = "1080";
    analysis.seq_samplerate = "48000";
    EXPECT_EQ(summary_of(analysis, "Reel"), "Reel  ·  25 fps  ·  1920 × 1080  ·  48000 Hz");
}

TEST(summary, tells_of_bins_their_title_alone)
{
    const xmeml document =
        xmeml().bin_clip("Bin", testing_support::bin_clip("loose", 100, "video", {clip("Loose")}));
    EXPECT_EQ(summary_of(analysis_of(document, ""), "Bin Clips"), "Bin Clips");
}

TEST(message, says_what_to_do_first)
{
    no_diagnostics out;
    const session_runner runner(out);
    EXPECT_EQ(all(texts_of_message(runner, {})),
              "Drop an exported timeline here | XML from Final Cut Pro 7 or Premiere Pro | open");
    EXPECT_EQ(all(texts_of_message(runner, "cut.xml")),
              "cut.xml could not be read | Export the sequence again, or open another file. | open");
}

TEST(message, says_what_a_document_holds_and_what_to_do_with_it)
{
    EXPECT_EQ(message_after(xmeml().sequence("Odd", {.timebase = 17}).video_track({clip("A")}).text()),
              "The sequence is not analyzed | Press Analyze to read it.");
    EXPECT_EQ(
        message_after(xmeml()
                          .sequence("One", {.uuid = "one"})
                          .sequence("Two", {.uuid = "two"})
                          .bin_clip("Bin", testing_support::bin_clip("loose", 100, "video", {clip("L")}))
                          .text()),
        "Choose what to report | This timeline holds 3 things to report. Choose one in the menu on top, then "
        "press Analyze.");
}

TEST(message, says_how_to_export_what_holds_nothing)
{
    EXPECT_EQ(
        message_after("<other/>"),
        "There is nothing to report in this file | It holds no sequence and no clips in bins. Export the "
        "sequence again: in Final Cut Pro 7 with File > Export > XML, version 5; in Premiere Pro with File > "
        "Export > Final Cut Pro XML. | open");
}

} // namespace tallyframe::window
