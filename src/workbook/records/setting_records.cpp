// SPDX-License-Identifier: MIT
//
// Nearly all of these records are one number of 2 bytes; HEADER and FOOTER are empty. The fields of the
// others behind their headers, with the offset of each:
//
//                 0                      3        112
//     WRITEACCESS | a text without units | blanks |
//                 0
//     TABID       | number of each sheet, 2 ... |
//                 0        8
//     DELTA       | double |
//                 0   8
//     GUTS        | 0 |
//                 0       2       4            6            8            10      12                    16
//     SETUP       | paper | scale | first page | pages wide | pages high | flags | resolutions, 2 each |
//                 16                24                32       34
//                 | header's margin | footer's margin | copies |
#include "workbook/records/setting_records.h"

#include "workbook/records/record.h"

#include <span>

namespace xls::records {

namespace {

struct setting {
    record_id id;
    std::uint16_t value;
};

constexpr std::uint16_t off = 0;
constexpr std::uint16_t on = 1;
constexpr std::uint16_t utf16 = 1200;

void write(byte_writer& out, std::span<const setting> settings)
{
    for (const auto& [id, value] : settings) {
        const record setting_record(out, id);
        out.u16(value);
    }
}

void interface_end(byte_writer& out)
{
    const record end_record(out, record_id::interface_end);
}

void write_access(byte_writer& out)
{
    constexpr std::size_t size = 112;
    constexpr std::size_t empty_text_size = 3;
    const record access_record(out, record_id::write_access);
    out.zeros(empty_text_size);
    for (auto i = empty_text_size; i < size; ++i)
        out.u8(' ');
}

void tab_numbers(byte_writer& out, std::size_t sheets)
{
    const record tab_record(out, record_id::tab_id);
    for (std::size_t i = 1; i <= sheets; ++i)
        out.u16(static_cast<std::uint16_t>(i));
}

} // namespace

void settings_before_window(byte_writer& out, std::size_t sheets)
{
    constexpr setting interface[] {
        {record_id::interface_header, utf16}, { record_id::mms, off }
    };
    constexpr setting text[]{{record_id::codepage, utf16}, {record_id::double_stream_file, off}};
    constexpr setting protection[]{
        {record_id::function_group_count, 14},
        {record_id::window_protect, off},
        {record_id::protect, off},
        {record_id::password, off},
        {record_id::revision_protect, off},
        {record_id::revision_password, off},
    };
    write(out, interface);
    interface_end(out);
    write_access(out);
    write(out, text);
    if (sheets * sizeof(std::uint16_t) <= record_limit)
        tab_numbers(out, sheets);
    write(out, protection);
}

void settings_behind_window(byte_writer& out)
{
    constexpr setting settings[]{
        {record_id::backup, off},    {record_id::hide_objects, off},
        {record_id::date_mode, off}, // days since 1900
        {record_id::precision, on},  {record_id::refresh_all, off},
        {record_id::book_bool, off},
    };
    write(out, settings);
}

void calculation_settings(byte_writer& out)
{
    constexpr double least_change = 0.001;
    constexpr std::size_t guts_size = 8;
    constexpr setting calculation[]{
        {record_id::calculation_mode, on}, // automatic
        {record_id::calculation_count, 100},
        {record_id::reference_mode, on}, // A1
        {record_id::iteration, off},
    };
    constexpr setting saving_and_printing[]{
        {record_id::save_recalculated, on},
        {record_id::print_headers, off},
        {record_id::print_grid, off},
        {record_id::grid_set, on},
    };
    write(out, calculation);
    {
        const record delta_record(out, record_id::delta);
        out.f64(least_change);
    }
    write(out, saving_and_printing);
    const record guts_record(out, record_id::guts);
    out.zeros(guts_size);
}

void page_settings(byte_writer& out)
{
    constexpr setting outline_and_page_breaks[]{{record_id::ws_bool, 0x04C1}};
    constexpr setting centering[]{{record_id::center_horizontally, off}, {record_id::center_vertically, off}};
    constexpr std::uint16_t printer_not_set = 0x0004;
    constexpr std::uint16_t resolution = 600;
    constexpr double margin = 0.5; // inches
    write(out, outline_and_page_breaks);
    for (const auto id : {record_id::header, record_id::footer}) {
        const record empty_record(out, id);
    }
    write(out, centering);
    const record setup_record(out, record_id::setup);
    constexpr std::uint16_t fields[]{0, 100, 1, 1, 1, printer_not_set, resolution, resolution};
    for (const auto number : fields)
        out.u16(number);
    out.f64(margin);
    out.f64(margin);
    out.u16(1);
}

} // namespace xls::records
