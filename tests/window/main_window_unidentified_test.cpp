// SPDX-License-Identifier: MIT
// Sequences without an identifier in the window: said, and listed where the user wants them.
#include "support/xmeml_builder.h"
#include "window/main_window_fixture.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QLabel>
#include <QTableView>

namespace tallyframe::window {

namespace {

using tallyframe::testing_support::clip;
using tallyframe::testing_support::xmeml;

class main_window_unidentified : public main_window_test {
protected:
    static std::string sequence(const std::string& name)
    {
        return "<sequence><name>" + name
            + "</name><duration>50</duration><rate><timebase>25</timebase></rate>" + "<media><video><track>"
            + clip("A").text() + "</track></video></media></sequence>";
    }

    QWidget& line() { return *find<QLabel>("leftOutLabel").parentWidget(); }
};

} // namespace

TEST_F(main_window_unidentified, are_listed_and_analyzed_on_demand)
{
    open_text(xmeml().with(sequence("Scene 1")).text());
    EXPECT_TRUE(line().isVisible());
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "No sequence in this file has an identifier");
    find<QAbstractButton>("listUnidentifiedButton").click();
    wait_for_run();
    EXPECT_FALSE(line().isVisible());
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").currentText(), "Scene 1");
    EXPECT_EQ(rows_of("previewTableView"), 1) << "the only entry is analyzed at once";
}

TEST_F(main_window_unidentified, stand_behind_the_others)
{
    open_text(xmeml()
                  .sequence("Cut", {})
                  .video_track({clip("A"), clip("B").at(50, 60)})
                  .with(sequence("Scene 1"))
                  .text());
    EXPECT_EQ(rows_of("previewTableView"), 2);
    EXPECT_TRUE(line().isVisible());
    find<QAbstractButton>("listUnidentifiedButton").click();
    wait_for_run();
    choose(2); // behind the separator
    EXPECT_EQ(window->runner().session().analysis.sequence_name, "Scene 1");
    EXPECT_EQ(rows_of("previewTableView"), 1);
}

TEST_F(main_window_unidentified, are_left_out_again_of_the_next_document)
{
    open_text(xmeml().with(sequence("Scene 1")).text());
    find<QAbstractButton>("listUnidentifiedButton").click();
    wait_for_run();
    open(write("other.xml", xmeml().with(sequence("Scene 2")).text()));
    EXPECT_TRUE(line().isVisible());
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").count(), 0);
}

TEST_F(main_window_unidentified, are_told_from_files_of_other_kinds)
{
    open(write("cut.fcpxml", R"(<?xml version="1.0"?><fcpxml version="1.9"/>)"));
    EXPECT_FALSE(line().isVisible());
    EXPECT_EQ(find<QLabel>("messageText").text(),
              "This is an FCPXML document (Final Cut Pro X). Tallyframe reads the XML that Premiere Pro "
              "writes with File "
              "> Export > Final Cut Pro XML, and Final Cut Pro 7 with File > Export > XML.");
}

} // namespace tallyframe::window
