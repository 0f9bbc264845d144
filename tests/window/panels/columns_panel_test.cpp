// SPDX-License-Identifier: MIT
#include "window/models/time_column_rows.h"
#include "window/panels/columns_panel.h"
#include "window/panels/layouts_editor.h"
#include "window/panels/time_columns_editor.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QListView>
#include <QSignalSpy>
#include <QTableView>

using testing::ElementsAre;

namespace tallyframe::window {

namespace {

report_options with_layouts()
{
    report_options options;
    options.layouts_array = {{"Short", {{"Track", 1}}}, {"Long", {{"Track", 1}, {"Reel", 1}}}};
    options.layout = "Long";
    options.timeline_time_columns = {time_format::frames, time_format::timecode};
    options.source_time_columns = {time_format::clock};
    options.adjustments.frames_adj = -3;
    return options;
}

report_options shown_by(const columns_panel& panel)
{
    report_options options;
    panel.apply_to(options);
    return options;
}

} // namespace

TEST(columns_panel, shows_options_quietly_and_gives_them_back)
{
    columns_panel panel;
    const QSignalSpy changes(&panel, &columns_panel::changed);
    const report_options wanted = with_layouts();
    panel.set_options(wanted);
    EXPECT_EQ(changes.count(), 0);
    const report_options shown = shown_by(panel);
    EXPECT_EQ(shown.layouts_array, wanted.layouts_array);
    EXPECT_EQ(shown.layout, "Long");
    EXPECT_EQ(shown.timeline_time_columns, wanted.timeline_time_columns);
    EXPECT_EQ(shown.source_time_columns, wanted.source_time_columns);
    EXPECT_EQ(shown.adjustments.frames_adj, -3);
    EXPECT_EQ(shown.adjustments.hhmmssff_adj, 0);
}

TEST(columns_panel, shows_the_usual_columns_where_the_layout_is_gone)
{
    report_options options = with_layouts();
    options.layout = "Deleted meanwhile";
    columns_panel panel;
    panel.set_options(options);
    EXPECT_EQ(panel.findChild<QComboBox*>("layoutsAppPopupMenu")->currentText(), "Default");
    EXPECT_EQ(shown_by(panel).layout, std::nullopt);
}

TEST(columns_panel, tells_of_each_choice)
{
    columns_panel panel;
    panel.set_options(with_layouts());
    const QSignalSpy changes(&panel, &columns_panel::changed);
    panel.findChild<QComboBox*>("layoutsAppPopupMenu")->setCurrentText("Short");
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(shown_by(panel).layout, "Short");
    auto* times = panel.findChild<QTableView*>("sourceColumnsTableView")->model();
    times->setData(times->index(0, 0), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(changes.count(), 2);
}

TEST(columns_panel, takes_the_layouts_of_its_dialog)
{
    columns_panel panel;
    panel.set_options({});
    const QSignalSpy changes(&panel, &columns_panel::changed);
    panel.edit_layouts();
    auto* editor = panel.findChild<layouts_editor*>("layoutsEditor");
    ASSERT_NE(editor, nullptr);
    editor->findChild<QAbstractButton*>("newLayoutButton")->click();
    auto* names = editor->findChild<QListView*>("layoutsListView");
    names->model()->setData(names->currentIndex(), "Turnover", Qt::EditRole);
    editor->accept();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(shown_by(panel).layout, "Turnover");
    ASSERT_EQ(shown_by(panel).layouts_array.size(), 1U);
    EXPECT_EQ(shown_by(panel).layouts_array[0].name, "Turnover");
}

TEST(columns_panel, keeps_its_layouts_where_the_dialog_is_cancelled)
{
    columns_panel panel;
    panel.set_options(with_layouts());
    const QSignalSpy changes(&panel, &columns_panel::changed);
    panel.edit_layouts();
    auto* editor = panel.findChild<layouts_editor*>("layoutsEditor");
    editor->findChild<QAbstractButton*>("newLayoutButton")->click();
    editor->reject();
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(shown_by(panel).layouts_array, with_layouts().layouts_array);
}

} // namespace tallyframe::window
