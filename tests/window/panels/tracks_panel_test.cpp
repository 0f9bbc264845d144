// SPDX-License-Identifier: MIT
#include "window/models/made_rows.h"
#include "window/panels/tracks_panel.h"

#include <gmock/gmock.h>

#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

using testing::ElementsAre;

namespace tallyframe::window {

namespace {

std::vector<int> states(tracks_panel& panel)
{
    return checkbox_states(panel.model().rows());
}

} // namespace

TEST(tracks_panel, ticks_all_and_none_with_its_buttons)
{
    tracks_panel panel("Video tracks", "videoTracksTableView");
    panel.set_rows(three_tracks());
    const QSignalSpy changes(&panel, &tracks_panel::ticks_changed);
    panel.findChild<QPushButton*>("videoTracksTableViewTickNoneButton")->click();
    EXPECT_THAT(states(panel), ElementsAre(0, 0, 0));
    panel.findChild<QPushButton*>("videoTracksTableViewTickAllButton")->click();
    EXPECT_THAT(states(panel), ElementsAre(1, 1, 1));
    EXPECT_EQ(changes.count(), 2);
}

TEST(tracks_panel, ticks_by_click_and_only_this_track_by_alt_click)
{
    tracks_panel panel("Video tracks", "videoTracksTableView");
    panel.set_rows(three_tracks());
    panel.resize(300, 300);
    panel.show();
    auto* table = panel.findChild<QTableView*>("videoTracksTableView");
    const int box = 9; // from the left edge
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      QPoint(box, table->visualRect(panel.model().index(0, 0)).center().y()));
    EXPECT_THAT(states(panel), ElementsAre(0, 1, 0));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::AltModifier,
                      table->visualRect(panel.model().index(2, 1)).center());
    EXPECT_THAT(states(panel), ElementsAre(0, 0, 1));
}

TEST(tracks_panel, ticks_by_the_keyboard)
{
    tracks_panel panel("Audio tracks", "audioTracksTableView");
    panel.set_rows(three_tracks());
    panel.show();
    auto* table = panel.findChild<QTableView*>("audioTracksTableView");
    table->setCurrentIndex(panel.model().index(1, 0));
    QTest::keyClick(table, Qt::Key_Space);
    EXPECT_THAT(states(panel), ElementsAre(1, 0, 0));
    panel.tick_only_current();
    EXPECT_THAT(states(panel), ElementsAre(0, 1, 0));
}

} // namespace tallyframe::window
