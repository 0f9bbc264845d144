// SPDX-License-Identifier: MIT
//
//     MSODRAWING   drawing container         its size reaches over all MSODRAWING records of the sheet
//                  |   drawing               shapes: u32 | last identifier: u32
//                  |   shape group container
//                  |   |   shape container   the group that stands for the sheet
//                  |   |   |   shape group   0: 16 bytes
//                  |   |   |   shape         identifier: u32 | flags: u32
//                  |   |   shape container   the first picture
//                  |   |   |   shape         identifier: u32 | flags: u32
//                  |   |   |   properties    proportions, the picture's number, no fill, no line
//                  |   |   |   client anchor flags: u16 | column, offset: u16 u16 | row, offset: u16 u16 |
//                  |   |   |                 column, offset: u16 u16 | row, offset: u16 u16 of the end
//                  |   |   |   client data   empty: the OBJ record stands for it
//     OBJ          |   |                     that picture's number on the sheet
//     MSODRAWING   |   |   shape container   the second picture
//     OBJ          |   |
//     ...
#include "workbook/records/drawing.h"

#include "workbook/records/cell_table.h"
#include "workbook/records/office_art.h"
#include "workbook/records/record.h"

namespace xls {

namespace {

namespace art = office_art;

constexpr std::uint32_t column_fractions = 1024;
constexpr std::uint32_t row_fractions = 256;

constexpr std::size_t drawing_size = 8;
constexpr std::size_t shape_size = 8;
constexpr std::size_t shape_group_size = 16;
constexpr std::size_t anchor_size = 18;
constexpr std::size_t property_count = 4;

constexpr std::size_t sheet_group_size = art::header_size + shape_group_size + art::header_size + shape_size;
constexpr std::size_t picture_size = art::header_size + shape_size + art::header_size
    + property_count * art::property_size + art::header_size + anchor_size + art::header_size;

void write_shape(byte_writer& out, std::uint16_t type, std::uint32_t identifier, std::uint32_t flags)
{
    art::header(out, art::kind::shape, 2, type, shape_size);
    out.u32(identifier);
    out.u32(flags);
}

/// The containers' heads and the group that stands for the sheet.
void write_sheet_group(byte_writer& out, const sheet_shapes& shapes)
{
    constexpr std::uint32_t is_sheet_group = 0x00000005;
    const auto pictures = shapes.count - 1;
    const auto shapes_size =
        art::header_size + sheet_group_size + pictures * (art::header_size + picture_size);
    art::header(out, art::kind::drawing_container, art::container, 0,
                art::header_size + drawing_size + art::header_size + shapes_size);
    art::header(out, art::kind::drawing, 0, shapes.drawing, drawing_size);
    out.u32(shapes.count);
    out.u32(shapes.first_shape + shapes.count - 1);
    art::header(out, art::kind::shape_group_container, art::container, 0, shapes_size);
    art::header(out, art::kind::shape_container, art::container, 0, sheet_group_size);
    art::header(out, art::kind::shape_group, 1, 0, shape_group_size);
    out.zeros(shape_group_size);
    write_shape(out, 0, shapes.first_shape, is_sheet_group);
}

void write_picture(byte_writer& out, const placed_picture& placed, std::uint32_t identifier,
                   const cell_sizes& sizes)
{
    constexpr std::uint16_t picture_frame = 75;
    constexpr std::uint32_t has_anchor_and_type = 0x00000A00;
    constexpr std::uint16_t moves_but_keeps_its_size = 2;
    const art::property properties[property_count]{
        {0x007F, 0x00800080}, // keep the proportions
        {0x4104, placed.picture},
        {0x01BF, 0x00100000}, // no fill
        {0x01FF, 0x00080000}, // no line
    };
    art::header(out, art::kind::shape_container, art::container, 0, picture_size);
    write_shape(out, picture_frame, identifier, has_anchor_and_type);
    art::properties(out, properties);

    const auto right =
        end_of(placed.column, placed.size.width, column_limit, column_fractions, sizes.width_of);
    const auto bottom = end_of(placed.row, placed.size.height, row_limit, row_fractions, sizes.height_of);
    art::header(out, art::kind::client_anchor, 0, 0, anchor_size);
    out.u16(moves_but_keeps_its_size);
    for (const std::uint16_t number : {placed.column, std::uint16_t{0}, placed.row, std::uint16_t{0},
                                       right.cell, right.offset, bottom.cell, bottom.offset})
        out.u16(number);
    art::header(out, art::kind::client_data, 0, 0, 0);
}

/// [MS-XLS] 2.4.181: what kind of object, then two blocks that only pictures have, then an end mark.
void write_object(byte_writer& out, std::uint16_t number)
{
    const record object(out, record_id::object);
    out.u16(0x15); // common properties
    out.u16(0x12);
    out.u16(8); // a picture
    out.u16(number);
    out.u16(0x6011); // locked, printed, moved by the reader
    out.zeros(12);
    out.u16(0x07); // clipboard format: as it is
    out.u16(2);
    out.u16(0xFFFF);
    out.u16(0x08); // picture flags: resized by the reader
    out.u16(2);
    out.u16(1);
    out.u32(0);
}

} // namespace

drawing_end end_of(std::uint16_t start, std::uint32_t size, std::size_t cells, std::uint32_t fractions,
                   const std::function<std::uint32_t(std::size_t)>& size_of)
{
    for (std::size_t cell = start; cell < cells; ++cell) {
        const auto cell_size = size_of(cell);
        if (size < cell_size)
            return {static_cast<std::uint16_t>(cell),
                    static_cast<std::uint16_t>(static_cast<std::uint64_t>(size) * fractions / cell_size)};
        size -= cell_size;
    }
    return {static_cast<std::uint16_t>(cells - 1), static_cast<std::uint16_t>(fractions - 1)};
}

void write_drawing(byte_writer& out, const std::vector<placed_picture>& placed, const sheet_shapes& shapes,
                   const cell_sizes& sizes)
{
    for (std::uint32_t i = 0; i < placed.size(); ++i) {
        {
            const record drawing(out, record_id::drawing);
            if (i == 0)
                write_sheet_group(out, shapes);
            write_picture(out, placed[i], shapes.first_shape + i + 1, sizes);
        }
        write_object(out, static_cast<std::uint16_t>(i + 1));
    }
}

} // namespace xls
