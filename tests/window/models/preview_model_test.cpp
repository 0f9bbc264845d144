// SPDX-License-Identifier: MIT
#include "sheets/report.h"
#include "support/analyzed_document.h"
#include "window/models/preview_model.h"

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
    report made;
    preview_model model;

    explicit shown_preview(const report_options& options = {}, const track_ticks& ticks = {{1}, {1}})
    {
        made = make_report(analysis, ticks, options);
        model.set_sheet(&made.sheets.front());
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
    const report made = make_report(analysis, {{1}, {1}}, {});
    model.set_sheet(&made.sheets.front());
    model.set_row_colors(Qt::blue, Qt::green);
    EXPECT_EQ(model.rowCount(), 2);
    model.set_sheet(nullptr);
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

TEST(preview_model, shows_any_sheet_with_its_records_alone)
{
    analysis_result analysis = two_clips();
    analysis.video_transition_array = {{}};
    analysis.video_transition_array.front().place.track = "V1";
    analysis.video_transition_array.front().name = "Wipe";
    const report made = make_report(analysis, {{1}, {1}}, {});
    preview_model model;
    for (const sheet& next : made.sheets) {
        if (next.name == "Transitions")
            model.set_sheet(&next);
    }
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Transition");
    EXPECT_EQ(model.headerData(0, Qt::Vertical, Qt::DisplayRole).toInt(), 5); // below the list of names
    EXPECT_EQ(model.index(0, 1).data().toString(), "Wipe");
}

TEST(preview_model, shows_a_cell_in_each_form_as_a_spreadsheet_does)
{
    const struct {
        cell_value value;
        cell_form form;
        QVariant shown;
        Qt::Alignment alignment;
    } cases[] = {
        {1234567.0, cell_form::whole_number, "1,234,567", Qt::AlignRight | Qt::AlignVCenter},
        {1234.5, cell_form::decimal, "1,234.50", Qt::AlignRight | Qt::AlignVCenter},
        {0.125, cell_form::percent, "12.5%", Qt::AlignCenter},
        {23.976, cell_form::text, "23.976", Qt::AlignRight | Qt::AlignVCenter},
        {std::string("✓"), cell_form::centered, "✓", Qt::AlignCenter},
        {std::string("1"), cell_form::text, "1", Qt::AlignLeft | Qt::AlignVCenter},
        {{}, cell_form::text, {}, Qt::AlignLeft | Qt::AlignVCenter},
    };
    sheet shown;
    shown.record_count = 1;
    shown.row_count = 2;
    shown.column_count = std::size(cases);
    shown.cell = [&](std::size_t, std::size_t column) {
        return sheet_cell{cases[column].value, {text_color::video, cases[column].form}};
    };
    preview_model model;
    model.set_sheet(&shown);
    for (int column = 0; column < model.columnCount(); ++column) {
        const auto& expected = cases[static_cast<std::size_t>(column)];
        EXPECT_EQ(model.index(0, column).data(), expected.shown) << column;
        EXPECT_EQ(model.index(0, column).data(Qt::TextAlignmentRole), QVariant(expected.alignment)) << column;
    }
}

TEST(preview_model, has_bold_titles_and_tells_that_the_pictures_come_later)
{
    sheet shown;
    shown.column_count = 2;
    shown.picture_column = 1;
    shown.cell = [](std::size_t, std::size_t) { return sheet_cell{std::string("Title"), {}}; };
    preview_model model;
    model.set_sheet(&shown);
    const auto title = [&](int column, int role) { return model.headerData(column, Qt::Horizontal, role); };
    EXPECT_EQ(title(0, Qt::DisplayRole).toString(), "Title");
    EXPECT_TRUE(title(0, Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(title(0, Qt::ToolTipRole).isValid());
    EXPECT_EQ(title(1, Qt::ToolTipRole).toString(), "The pictures are made when the report is saved");
}

} // namespace tallyframe::window
