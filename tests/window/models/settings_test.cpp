// SPDX-License-Identifier: MIT
#include "window/models/saved_layouts.h"
#include "window/models/settings.h"

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
    void save(choices kept) const
    {
        QSettings settings(path, QSettings::IniFormat);
        save_choices(settings, choices(), kept);
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
    EXPECT_EQ(kept.scope, report_scope::video_audio);
    EXPECT_EQ(kept.figures, figure_style::comparable);
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
    kept.scope = report_scope::audio;
    kept.figures = figure_style::exact;
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
    EXPECT_EQ(back.scope, report_scope::audio);
    EXPECT_EQ(back.figures, figure_style::exact);
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

TEST(settings, keep_only_what_has_changed)
{
    const settings_file file;
    QSettings settings(file.path, QSettings::IniFormat);
    choices changed;
    changed.options.motion_sheet = false;
    save_choices(settings, choices(), changed);
    EXPECT_EQ(settings.allKeys(), QStringList{"motionSheetCheckbox"});
}

namespace {

column_layout layout(const std::string& name, const std::string& column = "Track")
{
    return {name, {{column, 1}}};
}

/// What the settings hold, and what is known here, when this window has gone from `before` to `now` and
/// another one from `before` to `theirs`.
std::pair<choices, choices> after_two(const choices& before, const choices& theirs, choices now)
{
    const settings_file file;
    file.save(before);
    QSettings settings(file.path, QSettings::IniFormat);
    choices others = theirs;
    save_choices(settings, before, others);
    save_choices(settings, before, now);
    return {file.load(), now};
}

std::vector<std::string> layout_names(const choices& kept)
{
    std::vector<std::string> names;
    for (const column_layout& layout : kept.options.layouts_array)
        names.push_back(layout.name);
    return names;
}

} // namespace

TEST(settings, keep_the_layouts_of_two_windows)
{
    choices before;
    choices theirs;
    choices mine;
    before.options.layouts_array = {layout("Old"), layout("Older"), layout("Oldest")};
    theirs.options.layouts_array = {layout("Old", "Scene"), layout("Older"), layout("Theirs")};
    mine.options.layouts_array = {layout("Old"), layout("Oldest"), layout("Mine")};
    mine.options.layout = "Mine";
    const auto [kept, known] = after_two(before, theirs, mine);
    EXPECT_THAT(layout_names(kept), ElementsAre("Old", "Theirs", "Mine"));
    EXPECT_TRUE(is_on(kept.options.layouts_array[0], "Scene")) << "changed there";
    EXPECT_EQ(kept.options.layout, "Mine");
    EXPECT_EQ(layout_names(known), layout_names(kept));
}

TEST(settings, keep_both_layouts_that_two_windows_give_the_same_name)
{
    choices theirs;
    choices mine;
    theirs.options.layouts_array = {layout("new layout", "Scene")};
    mine.options.layouts_array = {layout("New layout", "Track")};
    mine.options.layout = "New layout";
    const auto [kept, known] = after_two({}, theirs, mine);
    EXPECT_THAT(layout_names(kept), ElementsAre("new layout", "New layout 2"));
    EXPECT_EQ(kept.options.layout, "New layout 2");
    EXPECT_EQ(known.options.layout, "New layout 2");
}

TEST(settings, keep_a_layout_that_is_in_use_here_and_deleted_there)
{
    choices before;
    choices theirs;
    choices mine;
    before.options.layouts_array = {layout("Used")};
    before.options.layout = "Used";
    mine = before;
    mine.options.layouts_array.push_back(layout("Mine"));
    const auto [kept, known] = after_two(before, theirs, mine);
    EXPECT_THAT(layout_names(kept), ElementsAre("Mine", "Used"));
    EXPECT_EQ(known.options.layout, "Used");
}

TEST(settings, keep_the_places_and_documents_of_two_windows)
{
    choices before;
    choices theirs;
    choices mine;
    before.media_places = {{"", "/old"}, {"", "/older"}};
    theirs.media_places = {{"", "/old"}, {"", "/older"}, {"", "/theirs"}};
    mine.media_places = {{"", "/old"}, {"/Volumes", "/mine"}};
    before.recent_documents = QStringList{"/a.xml", "/b.xml"};
    theirs.recent_documents = QStringList{"/theirs.xml", "/a.xml", "/b.xml"};
    mine.recent_documents = QStringList{"/b.xml", "/a.xml"};
    const auto [kept, known] = after_two(before, theirs, mine);
    EXPECT_EQ(kept.media_places,
              (std::vector<media_place>{{"", "/old"}, {"", "/theirs"}, {"/Volumes", "/mine"}}));
    EXPECT_EQ(kept.recent_documents, (QStringList{"/b.xml", "/theirs.xml", "/a.xml"}));
    EXPECT_EQ(known.recent_documents, kept.recent_documents);
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
