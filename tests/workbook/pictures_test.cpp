// SPDX-License-Identifier: MIT
#include "support/temporary_folder.h"
#include "workbook/read_back.h"
#include "workbook/records/drawing.h"
#include "workbook/records/picture_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

using tallyframe::testing_support::temporary_folder;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using file_bytes = std::vector<std::uint8_t>;

void append_big_endian(file_bytes& out, std::uint32_t number, int size)
{
    for (int i = size - 1; i >= 0; --i)
        out.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
}

/// The start of a PNG file, as far as its size.
file_bytes png(std::uint32_t width, std::uint32_t height, std::size_t more = 0)
{
    file_bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'};
    append_big_endian(file, width, 4);
    append_big_endian(file, height, 4);
    file.resize(file.size() + more, 0xAB);
    return file;
}

/// The start of a JPEG file: two segments that say nothing, fill bytes, then the frame.
file_bytes jpeg(std::uint32_t width, std::uint32_t height, std::uint8_t components = 3,
                std::uint8_t frame = 0xC2)
{
    file_bytes file{0xFF, 0xD8, 0xFF, 0xE0, 0,    4,     'J', 'F', 0xFF, 0xC4,
                    0,    2,    0xFF, 0xFF, 0xFF, frame, 0,   17,  8};
    append_big_endian(file, height, 2);
    append_big_endian(file, width, 2);
    file.push_back(components);
    return file;
}

std::filesystem::path saved(const temporary_folder& folder, const std::string& name,
                            const file_bytes& content)
{
    auto path = folder / name;
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
    return path;
}

std::string refusal_of(const std::filesystem::path& picture)
{
    try {
        xls::read_picture_file(picture);
    } catch (const xls::workbook_error& error) {
        return error.what();
    }
    return "not refused";
}

} // namespace

TEST(picture_header, knows_the_size_of_a_png)
{
    const auto header = xls::read_picture_header(png(640, 3));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->kind, xls::picture_kind::png);
    EXPECT_EQ(header->width, 640U);
    EXPECT_EQ(header->height, 3U);
}

TEST(picture_header, knows_the_size_of_a_jpeg)
{
    const auto header = xls::read_picture_header(jpeg(320, 180));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->kind, xls::picture_kind::jpeg);
    EXPECT_EQ(header->width, 320U);
    EXPECT_EQ(header->height, 180U);
    EXPECT_EQ(xls::read_picture_header(jpeg(1, 1, 4))->kind, xls::picture_kind::cmyk_jpeg);
}

TEST(picture_header, takes_no_other_files)
{
    EXPECT_FALSE(xls::read_picture_header({}));
    EXPECT_FALSE(xls::read_picture_header(png(0, 5)));
    EXPECT_FALSE(xls::read_picture_header(png(0x80000000, 5)));
    EXPECT_FALSE(xls::read_picture_header(jpeg(320, 0)));
    EXPECT_FALSE(xls::read_picture_header(jpeg(320, 180, 3, 0xDA)));
    EXPECT_FALSE(xls::read_picture_header(file_bytes{'G', 'I', 'F', '8', '9', 'a', 1, 0, 1, 0}));
}

TEST(picture_header, bears_a_file_that_is_cut_short)
{
    for (const auto& file : {png(640, 480), jpeg(640, 480)})
        for (std::size_t size = 0; size + 1 < file.size(); ++size)
            EXPECT_FALSE(xls::read_picture_header(xls::byte_view(file).first(size))) << size;
}

TEST(picture_file, says_what_is_wrong)
{
    const temporary_folder folder;
    EXPECT_THAT(refusal_of(folder / "none.jpg"), AllOf(HasSubstr("none.jpg"), HasSubstr("cannot be opened")));
    EXPECT_THAT(refusal_of(folder.path()), HasSubstr("cannot be opened"));
    EXPECT_THAT(refusal_of(saved(folder, "text.png", {'t', 'e', 'x', 't'})), HasSubstr("no JPEG or PNG"));
}

TEST(drawing, ends_where_the_pixels_end)
{
    const auto ten = [](std::size_t) { return 10U; };
    const auto end = [&](std::uint16_t start, std::uint32_t size) {
        const auto [cell, offset] = xls::end_of(start, size, 256, 1024, ten);
        return std::pair<int, int>(cell, offset);
    };
    EXPECT_EQ(end(3, 5), std::pair(3, 512));
    EXPECT_EQ(end(3, 10), std::pair(4, 0));
    EXPECT_EQ(end(3, 25), std::pair(5, 512));
    EXPECT_EQ(end(250, 1000), std::pair(255, 1023));
    EXPECT_EQ(end(255, 0xFFFFFFFF), std::pair(255, 1023));
}

TEST(drawing, skips_hidden_columns)
{
    const auto every_other = [](std::size_t cell) { return cell % 2 == 0 ? 10U : 0U; };
    const auto end = xls::end_of(0, 15, 256, 1024, every_other);
    EXPECT_EQ(end.cell, 2);
    EXPECT_EQ(end.offset, 512);
}

TEST(insert_image, anchors_pictures_in_their_own_size)
{
    const temporary_folder folder;
    const auto thumbnail = saved(folder, "a.jpg", jpeg(320, 180));
    const auto logo = saved(folder, "b.png", png(96, 34, 20000));
    xls::workbook book("");
    book.add_worksheet("No pictures").write_string(0, 0, "a");
    auto& sheet = book.add_worksheet("All Reels");
    sheet.insert_image(1, 0, thumbnail);
    sheet.insert_image(2, 0, logo);
    sheet.insert_image(5, 1, logo);
    sheet.set_column(0, 0, 45); // 320 pixels
    sheet.set_row(1, 135); // 180 pixels
    book.add_worksheet("Others").insert_image(0, 0, logo);
    const auto lines = read_back(book);
    EXPECT_THAT(lines_of(lines, "picture "), ElementsAre("1 JPEG 24 uses 1", "2 PNG 20024 uses 3"));
    EXPECT_THAT(
        lines_of(lines, "shape "),
        ElementsAre("1025 of picture 1 from 1 0 to 2+0 1+0", "1026 of picture 2 from 2 0 to 4+0 0+307",
                    "1027 of picture 2 from 5 1 to 7+0 2+512", "2049 of picture 2 from 0 0 to 2+0 1+512"));
}

TEST(insert_image, scales_pictures_into_the_highest_row)
{
    const temporary_folder folder;
    xls::workbook book("");
    auto& sheet = book.add_worksheet("All Reels");
    sheet.set_column(0, 0, 91); // 642 pixels
    for (const std::size_t row : {0U, 1U, 2U})
        sheet.set_row(row, 1000);
    sheet.insert_image(0, 0, saved(folder, "upright.jpg", jpeg(640, 1138)), xls::highest_row);
    sheet.insert_image(1, 0, saved(folder, "square.jpg", jpeg(642, 642)), xls::highest_row);
    sheet.insert_image(2, 0, saved(folder, "fits.jpg", jpeg(321, 545)), xls::highest_row);
    EXPECT_THAT(lines_of(read_back(book), "shape "),
                ElementsAre("1025 of picture 1 from 0 0 to 1+0 0+489", // 307 wide
                            "1026 of picture 2 from 1 0 to 2+0 0+869", // 545 wide
                            "1027 of picture 3 from 2 0 to 3+0 0+512"));
}

TEST(insert_image, is_never_smaller_than_a_pixel)
{
    const temporary_folder folder;
    xls::workbook book("");
    auto& sheet = book.add_worksheet("All Reels");
    sheet.insert_image(0, 0, saved(folder, "line.jpg", jpeg(1, 60000)), xls::highest_row);
    sheet.insert_image(20, 0, saved(folder, "dot.jpg", jpeg(10, 10)), 0);
    EXPECT_THAT(
        lines_of(read_back(book), "shape "),
        ElementsAre("1025 of picture 1 from 0 0 to 32+15 0+16", "1026 of picture 2 from 20 0 to 20+15 0+16"));
}

TEST(insert_image, keeps_nothing_of_a_picture_beyond_the_last_row)
{
    const temporary_folder folder;
    xls::workbook book("");
    auto& sheet = book.add_worksheet("All Reels");
    sheet.insert_image(65536, 0, saved(folder, "b.png", png(96, 34)));
    EXPECT_THROW(book.to_bytes(), xls::too_many_rows);
}

TEST(insert_image, deals_out_identifiers_for_thousands_of_pictures)
{
    const temporary_folder folder;
    const auto logo = saved(folder, "b.png", png(16, 16));
    xls::workbook book("");
    for (const auto* name : {"A", "B"}) {
        auto& sheet = book.add_worksheet(name);
        for (std::size_t row = 0; row < 1500; ++row)
            sheet.insert_image(row, 0, logo);
    }
    const auto lines = read_back(book);
    const auto shapes = lines_of(lines, "shape ");
    ASSERT_EQ(shapes.size(), 3000U);
    EXPECT_THAT(shapes[1499], testing::StartsWith("2524 "));
    EXPECT_THAT(shapes[1500], testing::StartsWith("3073 "));
    EXPECT_THAT(lines_of(lines, "picture "), ElementsAre("1 PNG 24 uses 3000"));
}
