// SPDX-License-Identifier: MIT
#include "workbook/read_back.h"
#include "workbook/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

const std::string plain = " | Arial 10 plain 32767 general line General";

/// The message of the workbook_error that an action ends in.
template <class Action>
std::string refusal(Action action)
{
    try {
        action();
    } catch (const xls::workbook_error& error) {
        return error.what();
    }
    return "not refused";
}

std::string repeated(const std::string& text, std::size_t times)
{
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

} // namespace

TEST(workbook, shows_texts_of_every_script)
{
    xls::workbook book("");
    auto& sheet = book.add_worksheet("Texts");
    sheet.write_string(0, 0, "Reel 1");
    sheet.write_string(0, 1, "Zo\u00eb");
    sheet.write_string(1, 0, "\u65e5\u672c\u8a9e");
    sheet.write_string(1, 1, "\U0001F3AC");
    EXPECT_THAT(read_back(book),
                ElementsAre("sheet Texts frozen 0 0", "cell 0 0 text \"Reel 1\"" + plain,
                            R"(cell 0 1 text "Zo\u00eb")" + plain,
                            R"(cell 1 0 text "\u65e5\u672c\u8a9e")" + plain,
                            R"(cell 1 1 text "\ud83c\udfac")" + plain));
}

TEST(workbook, repairs_bytes_that_are_not_utf8)
{
    xls::workbook book("");
    book.add_worksheet("Texts").write_string(0, 0, "a\xFF\xC3(\xED\xA0\x80");
    EXPECT_THAT(lines_of(read_back(book), "cell 0 0 text "),
                ElementsAre(R"("a\ufffd\ufffd(\ufffd\ufffd\ufffd")" + plain));
}

TEST(workbook, shows_numbers_exactly)
{
    const std::vector<double> numbers{0,       -1,           0.1,       12.34,     -0.07,
                                      1e300,   5e-324,       536870911, 536870912, -536870912,
                                      1.0 / 3, 123456789.01, 4294967296};
    xls::workbook book("");
    auto& sheet = book.add_worksheet("Numbers");
    for (std::size_t i = 0; i < numbers.size(); ++i)
        sheet.write_number(i, 0, numbers[i]);
    const auto cells = lines_of(read_back(book), "cell ");
    ASSERT_EQ(cells.size(), numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto start = std::to_string(i) + " 0 number ";
        ASSERT_THAT(cells[i], StartsWith(start));
        EXPECT_EQ(std::strtod(cells[i].c_str() + start.size(), nullptr), numbers[i]);
    }
}

TEST(workbook, shows_an_error_value_for_a_number_that_is_none)
{
    xls::workbook book("");
    auto& sheet = book.add_worksheet("Numbers");
    sheet.write_number(0, 0, std::nan(""));
    sheet.write_number(0, 1, std::numeric_limits<double>::infinity());
    EXPECT_THAT(lines_of(read_back(book), "cell "),
                ElementsAre("0 0 error \"#NUM!\"" + plain, "0 1 error \"#NUM!\"" + plain));
}

TEST(workbook, shows_formats)
{
    xls::workbook book("");
    const auto heading = book.add_format({.font = "Helvetica", .size = 11, .bold = true});
    const auto blue = book.add_format({.font = "Helvetica",
                                       .size = 11,
                                       .align = xls::alignment::center,
                                       .color = "blue",
                                       .number_format = "0.0%"});
    const auto wrapped =
        book.add_format({.wrap = true, .align = xls::alignment::right, .number_format = "#,##0.00"});
    auto& sheet = book.add_worksheet("Formats");
    sheet.write_string(0, 0, "a", heading);
    sheet.write_number(0, 1, 1, blue);
    sheet.write_number(0, 2, 1, wrapped);
    sheet.write_string(0, 3, "", blue);
    EXPECT_THAT(lines_of(read_back(book), "cell 0 "),
                ElementsAre("0 text \"a\" | Helvetica 11 bold 32767 general line General",
                            "1 number 1.0 | Helvetica 11 plain 12 center line 0.0%",
                            "2 number 1.0 | Arial 10 plain 32767 right wrap #,##0.00",
                            "3 blank \"\" | Helvetica 11 plain 12 center line 0.0%"));
}

TEST(workbook, stores_equal_formats_once)
{
    xls::workbook book("");
    const xls::format look{.font = "Helvetica", .size = 11, .color = "red"};
    EXPECT_EQ(book.add_format(look), book.add_format(look));
    EXPECT_EQ(book.add_format({}), xls::format_id{});
    EXPECT_NE(book.add_format(look), xls::format_id{});
}

TEST(workbook, refuses_a_color_that_it_does_not_know)
{
    xls::workbook book("");
    EXPECT_THAT(refusal([&] { book.add_format({.color = "mauve"}); }), HasSubstr("\"mauve\""));
}

TEST(workbook, refuses_more_own_colors_than_the_palette_has_room_for)
{
    xls::workbook book("");
    const auto add = [&](int i) { book.add_format({.color = "#0A0B" + std::to_string(10 + i)}); };
    for (int i = 0; i < 40; ++i)
        add(i);
    add(0);
    EXPECT_THAT(refusal([&] { add(40); }), HasSubstr("40 colors"));
}

TEST(workbook, sets_columns_rows_and_panes)
{
    xls::workbook book("");
    const auto blue = book.add_format({.color = "blue"});
    auto& sheet = book.add_worksheet("All Reels");
    sheet.set_column(0, 1, 8.43);
    sheet.set_column(1, 1, 40, blue);
    sheet.set_column(2, 2, 255);
    sheet.set_row(2, 135);
    sheet.freeze_panes(1, 0);
    book.add_worksheet("Both").freeze_panes(2, 3);
    EXPECT_THAT(read_back(book),
                ElementsAre("sheet All Reels frozen 1 0", "column 0 width 2340" + plain.substr(2),
                            "column 1 width 10422 Arial 10 plain 12 general line General",
                            "column 2 width 65280" + plain.substr(2), "row 2 height 135",
                            "sheet Both frozen 2 3"));
}

TEST(workbook, takes_cells_in_any_order_and_the_last_of_a_place)
{
    xls::workbook book("");
    const auto red = book.add_format({.color = "red"});
    auto& sheet = book.add_worksheet("Cells");
    for (std::size_t column = 0; column < 5; ++column)
        sheet.write_blank(40, column, red);
    sheet.write_string(40, 2, "amid blanks");
    sheet.write_string(3, 1, "old");
    sheet.write_string(3, 0, "left");
    sheet.write_number(3, 1, 7);
    sheet.write_string(1, 9, "above");
    const std::string blank = " blank \"\" | Arial 10 plain 10 general line General";
    EXPECT_THAT(lines_of(read_back(book), "cell "),
                ElementsAre("1 9 text \"above\"" + plain, "3 0 text \"left\"" + plain,
                            "3 1 number 7.0" + plain, "40 0" + blank, "40 1" + blank,
                            "40 2 text \"amid blanks\"" + plain, "40 3" + blank, "40 4" + blank));
}

TEST(workbook, reads_back_a_hundred_thousand_cells)
{
    xls::workbook book("");
    auto& sheet = book.add_worksheet("Many");
    for (std::size_t row = 0; row < 10000; ++row)
        for (std::size_t column = 0; column < 10; ++column)
            sheet.write_string(row, column,
                               "Clip " + std::to_string((row * 7 + column) % 5000)
                                   + repeated("\u00e9\u65e5", row % 3));
    const auto cells = lines_of(read_back(book), "cell ");
    ASSERT_EQ(cells.size(), 100000U);
    EXPECT_THAT(cells[54321], StartsWith(R"(5432 1 text "Clip 3025\u00e9\u65e5\u00e9\u65e5")"));
    EXPECT_THAT(cells[99999], StartsWith("9999 9 text \"Clip 2\""));
}

TEST(workbook, cuts_long_texts_and_says_so_once)
{
    std::vector<std::string> log;
    xls::workbook book("");
    book.set_log([&](std::string_view line) { log.emplace_back(line); });
    auto& sheet = book.add_worksheet("Notes");
    const auto too_long = std::string(40000, 'x');
    sheet.write_string(0, 0, std::string(32767, 'x'));
    sheet.write_string(4, 27, std::string(32766, 'y') + "\U0001F3AC");
    sheet.write_string(5, 0, std::string(32766, 'y') + "\U0001F3AC");
    sheet.write_string(6, 0, too_long);
    const auto cells = lines_of(read_back(book), "cell ");
    EXPECT_EQ(cells[0].size(), ("0 0 text \"\"" + plain).size() + 32767);
    EXPECT_EQ(cells[1].size(), ("4 27 text \"\"" + plain).size() + 32766);
    EXPECT_THAT(log, ElementsAre(AllOf(HasSubstr("cell AB5"), HasSubstr("\"Notes\""))));
    EXPECT_THAT(book.cut_texts(), ElementsAre(xls::cut_text{"Notes", 4, 27}));
}

TEST(workbook, refuses_rows_and_columns_that_a_sheet_does_not_hold)
{
    xls::workbook book("");
    auto& sheet = book.add_worksheet("All Reels");
    sheet.write_string(65535, 255, "last");
    EXPECT_THAT(lines_of(read_back(book), "cell "), ElementsAre("65535 255 text \"last\"" + plain));

    sheet.write_number(70000, 0, 1);
    EXPECT_THAT(
        refusal([&] { book.to_bytes(); }),
        testing::Eq("The sheet \"All Reels\" has 70,001 rows, but an Excel 97-2003 sheet holds 65,536."));

    xls::workbook wide("");
    wide.add_worksheet("All Reels").write_number(0, 256, 1);
    EXPECT_THAT(refusal([&] { wide.to_bytes(); }), HasSubstr("257 columns"));
}

TEST(workbook, refuses_sheet_names_that_excel_refuses)
{
    xls::workbook book("");
    book.add_worksheet("Gr\u00f6\u00dfe");
    for (const std::string name : {"", "a[b", "a]", "a:b", "a*", "a?", "a/b", "a\\b", "'a", "a'", "History",
                                   "a\nb", "GR\u00d6SSE", "12345678901234567890123456789012"})
        EXPECT_THAT(refusal([&] { book.add_worksheet(name); }), HasSubstr("\"" + name + "\"")) << name;
    book.add_worksheet("1234567890123456789012345678901");
    book.add_worksheet("it's");
    EXPECT_THAT(lines_of(read_back(book), "sheet "),
                ElementsAre("Gr\u00f6\u00dfe frozen 0 0", "1234567890123456789012345678901 frozen 0 0",
                            "it's frozen 0 0"));
}

TEST(workbook, refuses_to_be_without_sheets)
{
    xls::workbook book("");
    EXPECT_THAT(refusal([&] { book.to_bytes(); }), HasSubstr("at least one sheet"));
}

TEST(workbook, gives_the_same_bytes_each_time)
{
    const auto bytes = [] {
        xls::workbook book("");
        book.set_properties({.title = "Cut", .application = "Lists 1"});
        auto& sheet = book.add_worksheet("All Reels");
        sheet.write_string(0, 0, "a", book.add_format({.color = "#123456"}));
        return book.to_bytes();
    };
    EXPECT_EQ(bytes(), bytes());
}
