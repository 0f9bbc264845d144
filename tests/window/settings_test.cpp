// SPDX-License-Identifier: MIT
#include "window/saved_layouts.h"
#include "window/settings.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

using testing::ElementsAre;
using testing::IsEmpty;

namespace tallyframe::window {

namespace {

struct settings_file {
    QTemporaryDir folder;
    QString path = folder.filePath("tallyframe.ini");

    choices load() const { return load_choices(QSettings(path, QSettings::IniFormat)); }
    void save(const choices& kept) const
    {
        QSettings settings(path, QSettings::IniFormat);
        save_choices(settings, kept);
    }
    void write(const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

void expect_defaults(const choices& kept)
{
    const report_options defaults;
    EXPECT_EQ(kept.scope_tag, 0);
    EXPECT_EQ(kept.options.video_row_color, defaults.video_row_color);
    EXPECT_TRUE(kept.options.markers_sheets);
    EXPECT_FALSE(kept.options.layout.has_value());
    EXPECT_THAT(kept.options.layouts_array, IsEmpty());
    EXPECT_EQ(kept.options.timeline_time_columns, defaults.timeline_time_columns);
    EXPECT_EQ(kept.options.adjustments.clock_adj, 0);
    EXPECT_EQ(kept.options.thumbnail_width, defaults.thumbnail_width);
    EXPECT_THAT(kept.media_places, IsEmpty());
    EXPECT_EQ(kept.look, appearance::system);
    EXPECT_THAT(kept.recent_documents, IsEmpty());
}

} // namespace

TEST(settings, are_the_defaults_at_the_first_start)
{
    expect_defaults(settings_file().load());
}

TEST(settings, bring_every_choice_back)
{
    choices kept;
    kept.scope_tag = 2;
    kept.look = appearance::dark;
    kept.recent_documents = QStringList{"/films/Zoë, cut 3.xml", "/films/b.xml"};
    kept.save_folder = "/reports";
    report_options& options = kept.options;
    options.video_row_color = "purple";
    options.audio_row_color = "navy";
    options.marker_row_color = "red";
    options.motion_sheet = false;
    options.reel_sheets = false;
    options.report_enabled_only = true;
    options.inpoint_thumbnail_jpegs = true;
    options.keep_thumbnails = true;
    options.thumbnail_width = 777;
    kept.media_places = {{"/Volumes/Zoë, \"A\"", "/mnt/zoë"}, {"", "/mnt/music"}};
    options.layouts_array = {{"Conform; \"β\"", {{"Track", 1}, {"Comments", 1}, {"Scene", 0}}},
                             {"Music", {}}};
    options.layout = "Music";
    options.timeline_time_columns = {time_format::seconds, time_format::timecode};
    options.source_time_columns = {};
    options.adjustments.hhmmssff_adj = -12;
    options.adjustments.seconds_adj = 1;

    const settings_file file;
    file.save(kept);
    const choices back = file.load();
    EXPECT_EQ(back.scope_tag, 2);
    EXPECT_EQ(back.look, appearance::dark);
    EXPECT_EQ(back.recent_documents, kept.recent_documents);
    EXPECT_EQ(back.save_folder, "/reports");
    EXPECT_EQ(back.options.video_row_color, "purple");
    EXPECT_EQ(back.options.audio_row_color, "navy");
    EXPECT_EQ(back.options.marker_row_color, "red");
    EXPECT_TRUE(back.options.filters_sheet);
    EXPECT_FALSE(back.options.motion_sheet);
    EXPECT_FALSE(back.options.reel_sheets);
    EXPECT_TRUE(back.options.report_enabled_only);
    EXPECT_TRUE(back.options.inpoint_thumbnail_jpegs);
    EXPECT_TRUE(back.options.keep_thumbnails);
    EXPECT_EQ(back.options.thumbnail_width, 777);
    EXPECT_EQ(back.media_places, kept.media_places);
    ASSERT_EQ(back.options.layouts_array.size(), 2U);
    EXPECT_EQ(back.options.layouts_array[0].name, "Conform; \"β\"");
    EXPECT_TRUE(is_on(back.options.layouts_array[0], "Comments"));
    EXPECT_FALSE(is_on(back.options.layouts_array[0], "Scene"));
    EXPECT_EQ(back.options.layout, "Music");
    EXPECT_THAT(back.options.timeline_time_columns, ElementsAre(time_format::seconds, time_format::timecode));
    EXPECT_THAT(back.options.source_time_columns, IsEmpty());
    EXPECT_EQ(back.options.adjustments.hhmmssff_adj, -12);
    EXPECT_EQ(back.options.adjustments.clock_adj, 0);
    EXPECT_EQ(back.options.adjustments.seconds_adj, 1);
}

TEST(settings, are_the_defaults_where_the_file_is_damaged)
{
    const settings_file file;
    file.write(R"([General]
importVideoAudioRadioButtons=9
markersSheetsCheckbox=perhaps
videoRowColorPopup=mauve
layouts_array=[{"name": "Broken", "checkboxes":
layoutsAppPopupMenu=Broken
timeline_time_columns=Parsecs, Fortnights
clock_adj=99999999999999999999
thumbnail_width=1921
media_places="[[\"/Volumes\"], 3, [\"\", 7], {\"a\": 1}, [\"\", \"\"]]"
appearance=plaid
)");
    expect_defaults(file.load());
    file.write(QByteArray("\x00\xFF[[[=\n\x01=@Variant(\x7F\xFF\xFF\xFF)\n", 24));
    expect_defaults(file.load());
}

TEST(settings, keep_what_is_sound_beside_what_is_not)
{
    const settings_file file;
    file.write(R"([General]
filtersSheetCheckbox=false
audioRowColorPopup=mauve
layouts_array="[{\"name\":\"Good\",\"checkboxes\":{\"Track\":1,\"Nonsense\":1}},{\"name\":\"good\"},7]"
layoutsAppPopupMenu=Good
source_time_columns=Frames, Parsecs, Frames
)");
    const choices kept = file.load();
    EXPECT_FALSE(kept.options.filters_sheet);
    EXPECT_EQ(kept.options.audio_row_color, "green");
    ASSERT_EQ(kept.options.layouts_array.size(), 1U);
    EXPECT_EQ(kept.options.layouts_array[0].checkboxes.size(), 1U);
    EXPECT_EQ(kept.options.layout, "Good");
    EXPECT_THAT(kept.options.source_time_columns, ElementsAre(time_format::frames));
}

TEST(recent_documents, have_the_latest_first_and_each_once)
{
    choices kept;
    for (int i = 0; i < 12; ++i)
        remember_document(kept, QString("/films/%1.xml").arg(i));
    remember_document(kept, "/films/5.xml");
    EXPECT_EQ(kept.recent_documents.size(), recent_document_limit);
    EXPECT_EQ(kept.recent_documents[0], "/films/5.xml");
    EXPECT_EQ(kept.recent_documents[1], "/films/11.xml");
    EXPECT_EQ(kept.recent_documents.count("/films/5.xml"), 1);
}

} // namespace tallyframe::window
