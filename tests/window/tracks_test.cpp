// SPDX-License-Identifier: MIT
#include "window/track_rows.h"
#include "window/tracks_panel.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

using testing::ElementsAre;

namespace tallyframe::window {

namespace {

std::vector<track_row> three_tracks()
{
    return {{.label = "V1", .name = "Pictures", .item_count = 12},
            {.label = "V2", .name = "", .item_count = 1234, .is_disabled = true},
            {.label = "V3", .name = "Titles", .is_disabled = true, .is_ticked = false}};
}

std::vector<int> states(tracks_panel& panel)
{
    return checkbox_states(panel.model().rows());
}

} // namespace

TEST(track_rows, tell_of_each_track_what_the_table_shows)
{
    const std::vector<track_description> tracks = {
        {.label = "A1", .name = " Dialogue", .enabled = "TRUE", .item_count = 7},
        {.label = "A2", .name = "", .enabled = "FALSE", .item_count = 0}};
    const track_checkboxes checkboxes{.current = std::vector{0, 1}, .clone = {}};
    EXPECT_THAT(
        track_rows(tracks, checkboxes),
        ElementsAre(track_row{"A1", "Dialogue", 7, false, false}, track_row{"A2", "", 0, true, true}));
}

TEST(track_rows, tick_one_all_none_or_only_one)
{
    std::vector<track_row> rows = three_tracks();
    tick(rows, 2, true);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(1, 1, 1));
    tick_only(rows, 1);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(0, 1, 0));
    tick_all(rows, true);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(1, 1, 1));
    tick_all(rows, false);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(0, 0, 0));
    tick(rows, 99, true);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(0, 0, 0));
}

TEST(track_table_model, keeps_the_rules_of_item_models)
{
    track_table_model model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.set_rows(three_tracks());
    model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
    model.tick_every_row(true);
    model.set_rows({});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(track_table_model, shows_label_name_count_and_whether_a_track_is_disabled)
{
    track_table_model model;
    model.set_rows(three_tracks());
    const auto text = [&](int row, int column) {
        return model.index(row, column).data().toString().toStdString();
    };
    EXPECT_EQ(text(0, 0), "V1");
    EXPECT_EQ(text(0, 1), "Pictures");
    EXPECT_EQ(text(1, 1), "disabled");
    EXPECT_EQ(text(2, 1), "Titles (disabled)");
    EXPECT_EQ(text(0, 2), "12");
    EXPECT_EQ(model.index(2, 0).data(Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_EQ(model.index(1, 0).data(Qt::AccessibleTextRole).toString(), "V2, disabled");
}

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
