// SPDX-License-Identifier: MIT
#include "report/row_formats.h"

namespace tallyframe {

namespace {

constexpr const char* plain = "General";
constexpr const char* percentage = "0.0%";

xls::format base_format()
{
    xls::format format;
    format.font = "Helvetica";
    format.size = 11;
    return format;
}

row_format_set add_set(xls::workbook& book, const std::string& color, const char* centered_number_format)
{
    const auto add = [&](xls::alignment align, const char* number_format) {
        xls::format format = base_format();
        format.color = color;
        format.align = align;
        format.number_format = number_format;
        return book.add_format(format);
    };
    row_format_set set;
    set.text_format = add(xls::alignment::general, plain);
    set.center_format = add(xls::alignment::center, centered_number_format);
    set.integer_format = add(xls::alignment::general, "###,###,##0");
    set.decimal_format = add(xls::alignment::general, "#,##0.00");
    return set;
}

xls::format_id add_header_format(xls::workbook& book)
{
    xls::format format = base_format();
    format.bold = true;
    return book.add_format(format);
}

} // namespace

row_formats add_row_formats(xls::workbook& book, const report_options& options)
{
    row_formats formats;
    formats.header_format = add_header_format(book);
    formats.black = add_set(book, "black", percentage);
    formats.red = add_set(book, "red", percentage);
    // The sets whose colour the user chooses centre check marks, not shares: no percentage there.
    formats.video = add_set(book, options.video_row_color, plain);
    formats.audio = add_set(book, options.audio_row_color, plain);
    formats.marker = add_set(book, options.marker_row_color, plain);
    return formats;
}

} // namespace tallyframe
