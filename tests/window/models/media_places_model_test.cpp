// SPDX-License-Identifier: MIT
#include "window/models/media_places_model.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

using testing::ElementsAre;

namespace tallyframe::window {

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

TEST(media_places_model, says_what_a_place_stands_for)
{
    media_places_model places;
    places.set_places({{"", "/mnt/music"}, {"/Volumes/<b>", "/mnt/rushes"}});
    const auto tip = [&](int row) { return places.index(row, 0).data(Qt::ToolTipRole).toString(); };
    EXPECT_EQ(tip(0), "/mnt/music and all below it are searched by the files' names");
    EXPECT_EQ(tip(1), "<p>What the timeline names below /Volumes/&lt;b&gt; is below /mnt/rushes now</p>");
    EXPECT_EQ(places.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "In the timeline");
    EXPECT_EQ(places.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Look in");
}

TEST(media_places_model, shows_the_word_for_any_folder_fainter_than_a_folder)
{
    media_places_model places;
    places.set_places({{"", "/mnt/music"}, {"/Volumes/A", "/mnt/rushes"}});
    EXPECT_EQ(places.index(0, media_places_model::timeline_column).data(Qt::ForegroundRole).value<QColor>(),
              QGuiApplication::palette().color(QPalette::PlaceholderText));
    EXPECT_FALSE(places.index(1, media_places_model::timeline_column).data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(places.index(0, media_places_model::folder_column).data(Qt::ForegroundRole).isValid());
}

TEST(media_places_model, says_nothing_where_nothing_has_changed)
{
    media_places_model places;
    places.set_places({{"", "/mnt/music"}});
    const QSignalSpy changes(&places, &media_places_model::changed);
    EXPECT_TRUE(
        places.setData(places.index(0, media_places_model::folder_column), "/mnt/music ", Qt::EditRole));
    EXPECT_EQ(changes.count(), 0);
}

} // namespace tallyframe::window
