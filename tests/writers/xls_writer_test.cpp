// SPDX-License-Identifier: MIT
#include "sheets/report.h"
#include "support/counting_progress.h"
#include "support/kept_diagnostics.h"
#include "support/records.h"
#include "support/shown_sheet.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"
#include "support/workbook_content.h"
#include "writers/xls_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace tallyframe {

namespace {

namespace test = testing_support;

using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

/// A sheet of one column with these texts below its title.
sheet sheet_of_texts(const std::string& name, std::vector<std::string> texts)
{
    sheet made;
    made.name = name;
    made.record_count = texts.size();
    made.row_count = texts.size() + 1;
    made.column_count = 1;
    made.columns = {{.width = 5, .widens = true}};
    made.progress_steps = texts.size();
    made.cell = [texts = std::move(texts)](std::size_t row, std::size_t column) -> sheet_cell {
        if (column != 0)
            return {};
        if (row == 0)
            return {std::string_view("Title"), {text_color::header}};
        return {std::string_view(texts[row - 1]), {text_color::video}};
    };
    return made;
}

struct xls_run {
    test::temporary_folder folder;
    std::filesystem::path path = folder.path() / "report.xls";
    test::kept_diagnostics out;
    test::counting_progress display;
    std::vector<sheet> sheets;
    row_colors colors = {"blue", "green", "gray"};
    std::function<void()> before_it_appears = [] {};

    account write()
    {
        return xls_workbooks.write({.sheets = sheets,
                                    .colors = colors,
                                    .title = "Reel 1",
                                    .path = path,
                                    .before_it_appears = before_it_appears,
                                    .out = out,
                                    .display = display});
    }
};

TEST(xls_writer, writes_sheets_in_their_order_with_looks_and_widths)
{
    xls_run run;
    run.sheets = {sheet_of_texts("First", {"A", "longer than its title"}), sheet_of_texts("Second", {})};
    EXPECT_TRUE(run.write().is_empty());
    const auto book = test::read_workbook(run.path);
    EXPECT_THAT(book.names(), ElementsAre("First", "Second"));
    EXPECT_THAT(book.sheet("First").column(0), ElementsAre("Title", "A", "longer than its title"));
    EXPECT_THAT(book.sheet("First").looks(1), ElementsAre("Helvetica 11 plain blue general General"));
    EXPECT_NEAR(book.sheet("First").widths.at(0), 21, 0.1);
    EXPECT_NEAR(book.sheet("Second").widths.at(0), 5, 0.1);
    EXPECT_EQ(book.sheet("Second").frozen, std::pair(1, 0));
}

constexpr text_color all_colors[] = {text_color::none,  text_color::header, text_color::black,
                                     text_color::red,   text_color::video,  text_color::audio,
                                     text_color::marker};
constexpr cell_form all_forms[] = {cell_form::text, cell_form::centered, cell_form::whole_number,
                                   cell_form::decimal, cell_form::percent};

/// The format of a look in a workbook in the colours of xls_run.
std::string format_of(const cell_look& look)
{
    static const std::map<text_color, std::string> fonts = {
        {text_color::black, "Helvetica 11 plain black "}, {text_color::red, "Helvetica 11 plain red "},
        {text_color::video, "Helvetica 11 plain blue "},  {text_color::audio, "Helvetica 11 plain green "},
        {text_color::marker, "Helvetica 11 plain gray "},
    };
    if (look.color == text_color::none)
        return "Arial 10 plain auto general General";
    if (look.color == text_color::header)
        return "Helvetica 11 bold auto general General";
    const std::string& font = fonts.at(look.color);
    switch (look.form) {
    case cell_form::whole_number:
        return font + "general ###,###,##0";
    case cell_form::decimal:
        return font + "general #,##0.00";
    case cell_form::centered:
    case cell_form::percent:
        return font
            + (look.color == text_color::black || look.color == text_color::red ? "center 0.0%"
                                                                                : "center General");
    case cell_form::text:
        break;
    }
    return font + "general General";
}

TEST(xls_writer, has_a_format_for_every_look)
{
    xls_run run;
    sheet looks = sheet_of_texts("Looks", {});
    looks.row_count = std::size(all_colors);
    looks.record_count = looks.row_count - 1; // the first row takes the place of the titles
    looks.column_count = std::size(all_forms);
    looks.cell = [](std::size_t row, std::size_t column) -> sheet_cell {
        return {std::string_view("x"), {all_colors[row], all_forms[column]}};
    };
    run.sheets = {looks};
    run.write();
    const auto written = test::read_workbook(run.path).sheet("Looks");
    for (std::size_t row = 0; row < std::size(all_colors); ++row) {
        for (std::size_t column = 0; column < std::size(all_forms); ++column) {
            EXPECT_EQ(written.cell(row, column).look, format_of({all_colors[row], all_forms[column]}))
                << "row " << row << ", column " << column;
        }
    }
}

TEST(xls_writer, writes_each_kind_of_value)
{
    xls_run run;
    sheet values = sheet_of_texts("Values", {""});
    values.column_count = 5;
    values.cell = [](std::size_t, std::size_t column) -> sheet_cell {
        const sheet_cell cells[] = {{std::string_view("a text"), test::video_text},
                                    {std::string("a made text"), test::video_text},
                                    {1.5, test::video_decimal},
                                    {std::string_view(), test::video_center},
                                    {std::numeric_limits<double>::quiet_NaN(), test::black_share}};
        return cells[column];
    };
    run.sheets = {values};
    run.write();
    const auto written = test::read_workbook(run.path).sheet("Values");
    EXPECT_THAT(written.row(1), ElementsAre("a text", "a made text", "1.5", "", "#NUM!"));
    const std::vector<std::string> kinds = {"text", "text", "number", "blank", "error"};
    for (std::size_t column = 0; column < kinds.size(); ++column)
        EXPECT_EQ(written.cell(1, column).kind, kinds[column]);
}

TEST(xls_writer, formats_the_empty_cells_of_columns)
{
    xls_run run;
    run.sheets = {sheet_of_texts("First", {})};
    run.sheets[0].columns = {{.width = 10, .empty_look = test::black_share}, {.width = 0}, {.width = 12}};
    run.write();
    const auto written = test::read_workbook(run.path).sheet("First");
    EXPECT_EQ(written.column_looks.at(0), format_of(test::black_share));
    EXPECT_FALSE(written.column_looks.contains(1)) << "it keeps its own width";
    EXPECT_EQ(written.column_looks.at(2), format_of(test::no_look));
}

/// Cell by cell, and the columns.
void expect_as_shown(const test::sheet_content& written, const test::shown_sheet& shown)
{
    EXPECT_EQ(written.name, shown.name);
    EXPECT_EQ(written.frozen, std::pair(static_cast<int>(shown.frozen_rows), 0));
    ASSERT_EQ(written.row_count(), shown.row_count());
    for (std::size_t row = 0; row < shown.row_count(); ++row) {
        EXPECT_EQ(written.row(row), shown.row(row)) << shown.name << ", row " << row;
        for (std::size_t column = 0; column < shown.row(row).size(); ++column) {
            const test::shown_cell cell = shown.cell(row, column);
            EXPECT_EQ(written.cell(row, column).kind, cell.kind);
            EXPECT_EQ(written.cell(row, column).look, cell.kind.empty() ? "" : format_of(cell.look))
                << shown.name << ", row " << row << ", column " << column;
        }
    }
    for (std::size_t column = 0; column < shown.widths.size(); ++column) {
        ASSERT_EQ(written.widths.contains(column), shown.widths[column] != 0);
        if (shown.widths[column] == 0)
            continue;
        EXPECT_NEAR(written.widths.at(column), shown.widths[column], 0.1);
        EXPECT_EQ(written.column_looks.at(column), format_of(shown.empty_looks[column]));
    }
}

TEST(xls_writer, writes_a_report_as_its_sheets_show_it)
{
    analysis_result analysis = test::sequence_for_every_sheet();
    analysis.video_clip_data_array.push_back(test::clip(std::string(100, 'n'), "V1", 100, 149));
    analysis.video_clip_filter_array.push_back(test::filter("Glow", false, "V1", 100));
    const report made = make_report(analysis, {{1}, {1}}, {});
    const test::shown_report shown(made.sheets);
    xls_run run;
    const account lost = xls_workbooks.write({.sheets = made.sheets,
                                              .colors = run.colors,
                                              .title = {},
                                              .path = run.path,
                                              .out = run.out,
                                              .display = run.display});
    EXPECT_TRUE(lost.is_empty());
    EXPECT_EQ(run.display.steps, static_cast<std::int64_t>(progress_steps(made)));
    const auto written = test::read_workbook(run.path);
    ASSERT_EQ(written.names(), shown.names());
    ASSERT_EQ(written.sheets.size(), 10U);
    for (std::size_t i = 0; i < written.sheets.size(); ++i)
        expect_as_shown(written.sheets[i], shown.sheets[i]);
}

TEST(colors_of_a_report, are_those_of_its_options)
{
    report_options options;
    options.video_row_color = "purple";
    options.audio_row_color = "yellow";
    options.marker_row_color = "#123456";
    EXPECT_EQ(colors_of(options).video, "purple");
    EXPECT_EQ(colors_of(options).audio, "yellow");
    EXPECT_EQ(colors_of(options).marker, "#123456");
}

TEST(xls_writer, writes_rows_in_the_colors_that_it_is_given)
{
    xls_run run;
    run.colors.video = "purple";
    run.sheets = {sheet_of_texts("First", {"A"})};
    run.write();
    EXPECT_THAT(test::read_workbook(run.path).sheet("First").looks(1),
                ElementsAre("Helvetica 11 plain purple general General"));
}

TEST(xls_writer, spreads_the_steps_of_a_sheet_over_its_rows)
{
    xls_run run;
    run.sheets = {sheet_of_texts("More steps", {"A", "B"}), sheet_of_texts("Fewer", {"A", "B", "C"}),
                  sheet_of_texts("No rows", {})};
    run.sheets[0].progress_steps = 5;
    run.sheets[1].progress_steps = 1;
    run.sheets[2].progress_steps = 2;
    run.write();
    EXPECT_EQ(run.display.steps, 5 + 1 + 2);
    EXPECT_THAT(run.display.messages, ElementsAre("Saving spreadsheet...\n"));
}

TEST(xls_writer, leaves_an_older_file_as_it_was_when_what_comes_before_fails)
{
    xls_run run;
    test::write_file(run.path, "older");
    run.sheets = {sheet_of_texts("First", {"A"})};
    run.before_it_appears = [] { throw failure("The pictures stay away."); };
    EXPECT_THAT([&] { run.write(); }, ThrowsMessage<failure>("The pictures stay away."));
    EXPECT_EQ(std::filesystem::file_size(run.path), 5U);
    run.before_it_appears = [] {};
    run.display.stop_at = 1;
    EXPECT_THROW(run.write(), run_cancelled);
    EXPECT_EQ(std::filesystem::file_size(run.path), 5U);
}

TEST(xls_writer, tells_of_texts_that_it_cut)
{
    xls_run run;
    run.sheets = {sheet_of_texts("First", {"A", std::string(40000, 'x')})};
    EXPECT_THAT(sentences_of(run.write()),
                ElementsAre("1 text was cut at the 32,767 characters that a cell takes (First, row 3)."));
}

TEST(xls_writer, goes_on_without_a_picture_that_it_cannot_take)
{
    xls_run run;
    const auto no_picture = test::write_file(run.folder / "none.jpg", "no picture");
    run.sheets = {sheet_of_texts("First", {"A"})};
    run.sheets[0].picture_column = 0;
    run.sheets[0].picture = [&](std::size_t) { return std::optional(row_picture{no_picture, 90}); };
    const account lost = run.write();
    EXPECT_EQ(lost.of(loss_kind::absent_pictures).count, 1U);
    EXPECT_THAT(run.out.text, HasSubstr("\"no thumbnail: "));
    EXPECT_THAT(test::read_workbook(run.path).sheet("First").column(0), ElementsAre("Title", "A"));
}

TEST(xls_writer, names_the_sheet_that_is_too_long)
{
    xls_run run;
    run.sheets = {sheet_of_texts("First", std::vector<std::string>(65536, "x"))};
    try {
        run.write();
        FAIL() << "nothing thrown";
    } catch (const sheet_too_long& error) {
        EXPECT_EQ(error.sheet, "First");
        EXPECT_STREQ(error.what(),
                     "The sheet \"First\" has 65,537 rows, but an Excel 97-2003 sheet holds 65,536.");
    }
    EXPECT_FALSE(std::filesystem::exists(run.path));
}

TEST(xls_writer, shows_what_a_file_name_would_do_to_the_terminal)
{
    xls_run run;
    run.sheets = {sheet_of_texts("First", {})};
    run.path = run.folder.path() / "no\n" / "report.xls";
    const std::string shown = (run.folder.path() / "no<U+000A>" / "report.xls").string();
    const std::string sentence =
        "The workbook \"" + shown + "\" was not saved: its folder does not exist. Choose another folder.";
    EXPECT_THAT([&] { run.write(); }, ThrowsMessage<failure>(sentence));
    EXPECT_THAT([&] { xls_workbooks.check_place(run.path); }, ThrowsMessage<failure>(sentence));
}

TEST(xls_writer, refuses_a_color_that_is_none)
{
    xls_run run;
    run.colors.marker = "octarine";
    EXPECT_THAT([&] { run.write(); },
                ThrowsMessage<failure>("The color \"octarine\" is not known. Give a color name or #RRGGBB."));
}

} // namespace

} // namespace tallyframe
