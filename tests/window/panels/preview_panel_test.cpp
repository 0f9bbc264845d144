// SPDX-License-Identifier: MIT
#include "support/analyzed_document.h"
#include "window/panels/preview_panel.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTableView>

namespace tallyframe::window {

namespace {

using tallyframe::testing_support::analysis_of;
using tallyframe::testing_support::clip;
using tallyframe::testing_support::xmeml;

/// A panel that shows a report of two clips on a video and an audio track.
struct shown_panel {
    analysis_result analysis = analysis_of(xmeml()
                                               .sequence("Reel 1", {})
                                               .video_track({clip("Interview").at(0, 50)})
                                               .audio_track({clip("Song").at(0, 50)}));
    report_options options;
    preview_panel panel;

    explicit shown_panel(const track_counts& tracks = {}) { show({{1}, {1}}, tracks); }

    void show(const track_ticks& ticks, const track_counts& tracks = {})
    {
        panel.show_report(make_report(analysis, ticks, options), options, tracks);
    }

    QTableView& table() { return *panel.findChild<QTableView*>("previewTableView"); }
    QString counts() { return panel.findChild<QLabel*>("countsLabel")->text(); }
};

} // namespace

TEST(preview_panel, says_how_much_it_shows_and_what_is_left_out)
{
    shown_panel shown;
    const QString columns = QString::number(shown.panel.model().columnCount());
    EXPECT_EQ(shown.counts(), "2 rows, " + columns + " columns");
    shown.show({{1}, {0}}, {.all = 2, .left_out = 1});
    EXPECT_EQ(shown.counts(), "1 row, " + columns + " columns, 1 of 2 tracks left out");
}

TEST(preview_panel, keeps_the_current_cell_where_rows_are_left)
{
    shown_panel shown;
    shown.table().setCurrentIndex(shown.panel.model().index(1, 3));
    shown.show({{1}, {1}});
    EXPECT_EQ(shown.table().currentIndex(), shown.panel.model().index(1, 3));
    shown.show({{1}, {0}});
    EXPECT_EQ(shown.table().currentIndex(), shown.panel.model().index(0, 3));
    shown.show({{0}, {0}});
    EXPECT_FALSE(shown.table().currentIndex().isValid());
}

TEST(preview_panel, shows_a_summary_as_plain_text_and_nothing_once_cleared)
{
    shown_panel shown;
    shown.panel.set_summary("<b>Reel 1</b>, 25 frames a second");
    auto* summary = shown.panel.findChild<QLabel*>("summaryLabel");
    EXPECT_EQ(summary->text(), "<b>Reel 1</b>, 25 frames a second");
    EXPECT_EQ(summary->textFormat(), Qt::PlainText);
    shown.panel.clear();
    EXPECT_EQ(summary->text(), "");
    EXPECT_EQ(shown.counts(), "");
    EXPECT_EQ(shown.panel.model().rowCount(), 0);
}

TEST(preview_panel, writes_rows_in_colors_that_can_be_read_on_its_ground)
{
    shown_panel shown;
    const auto color_of_row = [&](int row) {
        return shown.panel.model().index(row, 0).data(Qt::ForegroundRole).value<QColor>();
    };
    QPalette light;
    light.setColor(QPalette::Base, Qt::white);
    shown.table().setPalette(light);
    const QColor on_white = color_of_row(0);
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    shown.table().setPalette(dark);
    EXPECT_GT(color_of_row(0).lightness(), on_white.lightness());
    EXPECT_NE(color_of_row(0), color_of_row(1)) << "video and audio";
}

TEST(preview_panel, fits_columns_to_their_texts_within_bounds)
{
    shown_panel shown;
    shown.analysis.video_clip_data_array.front().name = std::string(300, 'x');
    shown.show({{1}, {1}});
    const int character = shown.table().fontMetrics().horizontalAdvance('0');
    int widest = 0;
    for (int column = 0; column < shown.panel.model().columnCount(); ++column)
        widest = std::max(widest, shown.table().columnWidth(column));
    EXPECT_EQ(widest, 62 * character) << "60 characters and the margins";
}

} // namespace tallyframe::window
