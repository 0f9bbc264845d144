// SPDX-License-Identifier: MIT
#include "support/analyzed_document.h"
#include "window/preview_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

namespace tallyframe::window {

namespace {

using tallyframe::testing_support::analysis_of;
using tallyframe::testing_support::clip;
using tallyframe::testing_support::xmeml;

analysis_result two_clips()
{
    return analysis_of(xmeml()
                           .sequence("Reel 1", {.timebase = 25, .start_frame = 90000})
                           .video_track({clip("Interview").at(0, 50)})
                           .audio_track({clip("Song").at(25, 100000).enabled("FALSE")}));
}

struct shown_preview {
    analysis_result analysis = two_clips();
    preview_model model;

    explicit shown_preview(const report_options& options = {}, const track_ticks& ticks = {{1}, {1}})
    {
        model.set_table(preview_table(analysis, ticks, options));
    }

    int column(const QString& header) const
    {
        for (int i = 0; i < model.columnCount(); ++i) {
            if (model.headerData(i, Qt::Horizontal, Qt::DisplayRole).toString() == header)
                return i;
        }
        throw std::runtime_error("there is no column " + header.toStdString());
    }

    QVariant cell(int row, const QString& header, int role = Qt::DisplayRole) const
    {
        return model.index(row, column(header)).data(role);
    }
};

} // namespace

TEST(preview_model, keeps_the_rules_of_item_models)
{
    preview_model model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const analysis_result analysis = two_clips();
    model.set_table(preview_table(analysis, {{1}, {1}}, {}));
    model.set_row_colors(Qt::blue, Qt::green);
    EXPECT_EQ(model.rowCount(), 2);
    model.set_table({});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(preview_model, shows_the_clips_as_the_workbook_has_them)
{
    const shown_preview preview;
    EXPECT_EQ(preview.cell(0, "Clip Name").toString(), "Interview");
    EXPECT_EQ(preview.cell(0, "Sequence In").toString(), "01:00:00:00");
    EXPECT_EQ(preview.cell(0, "Enabled").toString(), "✓");
    EXPECT_EQ(preview.cell(1, "Enabled").toString(), "");
    EXPECT_EQ(preview.cell(0, "Enabled", Qt::TextAlignmentRole), QVariant(Qt::AlignCenter));
}

TEST(preview_model, shows_numbers_as_a_spreadsheet_does)
{
    report_options options;
    options.timeline_time_columns = {time_format::frames, time_format::seconds};
    options.adjustments.frames_adj = 1;
    const shown_preview preview(options);
    EXPECT_EQ(preview.cell(0, "Sequence In +1").toString(), "90,001");
    EXPECT_EQ(preview.cell(0, "Sequence In").toString(), "3,600.00");
    EXPECT_EQ(preview.cell(0, "Sequence In", Qt::TextAlignmentRole),
              QVariant(Qt::AlignRight | Qt::AlignVCenter));
}

TEST(preview_model, colors_the_rows_by_their_kind)
{
    shown_preview preview;
    preview.model.set_row_colors(Qt::blue, Qt::green);
    EXPECT_EQ(preview.cell(0, "Clip Name", Qt::ForegroundRole).value<QColor>(), QColor(Qt::blue));
    EXPECT_EQ(preview.cell(1, "Clip Name", Qt::ForegroundRole).value<QColor>(), QColor(Qt::green));
}

TEST(preview_model, has_the_rows_of_the_ticked_tracks_only)
{
    EXPECT_EQ(shown_preview({}, {{1}, {0}}).model.rowCount(), 1);
    EXPECT_EQ(shown_preview({}, {{0}, {0}}).model.rowCount(), 0);
    report_options enabled_only;
    enabled_only.report_enabled_only = true;
    EXPECT_EQ(shown_preview(enabled_only).model.rowCount(), 1);
}

TEST(preview_model, has_the_columns_of_the_layout)
{
    report_options options;
    options.layouts_array = {{"Bare", {{"Row Numbers", 1}}}};
    options.layout = "Bare";
    options.timeline_time_columns = {};
    const shown_preview preview(options);
    EXPECT_EQ(preview.model.columnCount(), 2);
    EXPECT_EQ(preview.model.index(1, 0).data().toString(), "2");
    EXPECT_EQ(preview.model.index(1, 1).data().toString(), "Song");
}

TEST(preview_table, is_as_wide_as_the_texts_that_it_looks_at)
{
    const analysis_result analysis =
        analysis_of(xmeml().sequence("Reel 1").video_track({clip(std::string(30, 'x')).at(0, 50)}));
    const preview_table table(analysis, {{1}, {}}, {});
    EXPECT_DOUBLE_EQ(table.width(1, 0), 10);
    EXPECT_DOUBLE_EQ(table.width(1, 1), 30);
}

} // namespace tallyframe::window
