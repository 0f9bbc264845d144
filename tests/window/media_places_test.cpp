// SPDX-License-Identifier: MIT
#include "window/media_places_editor.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>

using testing::ElementsAre;

namespace tallyframe::window {

TEST(media_places, are_mapped_where_they_stand_for_a_folder_of_the_timeline_and_searched_otherwise)
{
    report_options options;
    options.inpoint_thumbnail_jpegs = true;
    const media_choice choice =
        media_choice_of(options, {{"", "/mnt/music"}, {"/Volumes/Rushes", "/mnt/rushes"}});
    EXPECT_TRUE(choice.wants_pictures);
    EXPECT_FALSE(choice.keeps_pictures);
    EXPECT_THAT(choice.search, ElementsAre("/mnt/music"));
    ASSERT_EQ(choice.map.size(), 1U);
    EXPECT_EQ(choice.map[0].from, "/Volumes/Rushes");
    EXPECT_EQ(choice.map[0].to, "/mnt/rushes");
}

TEST(media_places_model, adds_changes_and_removes_places)
{
    media_places_model places;
    const QAbstractItemModelTester tester(&places, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy changes(&places, &media_places_model::changed);
    EXPECT_EQ(places.add("/mnt/music"), 0);
    EXPECT_EQ(places.add("/mnt/rushes"), 1);
    EXPECT_EQ(places.index(1, media_places_model::timeline_column).data().toString(), "any");
    EXPECT_EQ(places.index(1, media_places_model::timeline_column).data(Qt::EditRole).toString(), "");
    EXPECT_TRUE(
        places.setData(places.index(1, media_places_model::timeline_column), " /Volumes/Zoë ", Qt::EditRole));
    EXPECT_TRUE(places.setData(places.index(1, media_places_model::folder_column), "/mnt/zoë", Qt::EditRole));
    EXPECT_FALSE(places.setData(places.index(1, media_places_model::folder_column), "  ", Qt::EditRole))
        << "no folder";
    EXPECT_EQ(changes.count(), 4);
    places.remove(0);
    EXPECT_THAT(places.places(), ElementsAre(media_place{"/Volumes/Zoë", "/mnt/zoë"}));
    EXPECT_EQ(changes.count(), 5);
}

TEST(media_places_editor, removes_the_selected_place)
{
    media_places_editor editor;
    editor.model().set_places({{"", "/a"}, {"", "/b"}, {"", "/c"}});
    auto* remove = editor.findChild<QPushButton*>("removeMediaPlaceButton");
    auto* table = editor.findChild<QTableView*>("mediaPlacesTableView");
    EXPECT_FALSE(remove->isEnabled());
    table->setCurrentIndex(editor.model().index(1, 1));
    remove->click();
    remove->click();
    EXPECT_THAT(editor.model().places(), ElementsAre(media_place{"", "/a"}));
    remove->click();
    EXPECT_FALSE(remove->isEnabled());
    EXPECT_EQ(editor.model().rowCount(), 0);
}

} // namespace tallyframe::window
