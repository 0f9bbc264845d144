// SPDX-License-Identifier: MIT
#include "writers/xls_writer.h"

#include "platform/application.h"
#include "run/log.h"
#include "text/visible_text.h"
#include "workbook/workbook.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

namespace {

/// The formats of one colour, by the form of the cell.
using format_set = std::array<xls::format_id, cell_form_count>;

/// The looks of cells, taken into a workbook: by colour, then by form. A cell without a colour has no format.
using look_formats = std::array<format_set, text_color_count>;

constexpr const char* plain = "General";
constexpr const char* percentage = "0.0%";

xls::format base_format()
{
    xls::format format;
    format.font = "Helvetica";
    format.size = 11;
    return format;
}

xls::format_id add_header(xls::workbook& book)
{
    xls::format format = base_format();
    format.bold = true;
    return book.add_format(format);
}

format_set add_set(xls::workbook& book, const std::string& color, const char* centered_number_format)
{
    const auto add = [&](xls::alignment align, const char* number_format) {
        xls::format format = base_format();
        format.color = color;
        format.align = align;
        format.number_format = number_format;
        return book.add_format(format);
    };
    const xls::format_id text = add(xls::alignment::general, plain);
    const xls::format_id centered = add(xls::alignment::center, centered_number_format);
    const xls::format_id whole_number = add(xls::alignment::general, "###,###,##0");
    const xls::format_id decimal = add(xls::alignment::general, "#,##0.00");
    return {text, centered, whole_number, decimal, centered}; // of black and red that one shows percentages
}

look_formats add_formats(xls::workbook& book, const row_colors& colors)
{
    look_formats formats = {};
    const auto of_color = [&](text_color color) -> format_set& {
        return formats[static_cast<std::size_t>(color)];
    };
    of_color(text_color::header).fill(add_header(book));
    of_color(text_color::black) = add_set(book, "black", percentage);
    of_color(text_color::red) = add_set(book, "red", percentage);
    // The sets whose colour the user chooses centre check marks, not shares: no percentage there.
    of_color(text_color::video) = add_set(book, colors.video, plain);
    of_color(text_color::audio) = add_set(book, colors.audio, plain);
    of_color(text_color::marker) = add_set(book, colors.marker, plain);
    return formats;
}

xls::format_id format_of(const cell_look& look, const look_formats& formats)
{
    return formats[static_cast<std::size_t>(look.color)][static_cast<std::size_t>(look.form)];
}

/// Shows the steps of a sheet as its records go by.
class sheet_progress {
public:
    sheet_progress(const sheet& of, progress& display)
        : steps_(of.progress_steps), records_(of.record_count), display_(display)
    {
    }

    void pass(std::size_t record) { advance_to(steps_ * (record + 1) / records_); }
    void finish() { advance_to(steps_); }

private:
    void advance_to(std::size_t step)
    {
        for (; taken_ < step; ++taken_)
            display_.advance({});
    }

    std::size_t steps_;
    std::size_t records_;
    std::size_t taken_ = 0;
    progress& display_;
};

/// One run of the writer.
struct xls_writing {
    const writing& what;
    const look_formats& formats;
    account& lost;
};

/// Writes a row, and shows its texts to `see_text`.
template <class Visitor>
void write_row(const xls_writing& run, xls::worksheet& out, const sheet& from, std::size_t row,
               const Visitor& see_text)
{
    for (std::size_t column = 0; column < from.column_count; ++column) {
        const sheet_cell cell = from.cell(row, column);
        if (const double* number = std::get_if<double>(&cell.value)) {
            out.write_number(row, column, *number, format_of(cell.look, run.formats));
        } else if (const auto text = text_in(cell.value)) {
            out.write_string(row, column, *text, format_of(cell.look, run.formats));
            see_text(column, *text);
        }
    }
}

void write_row(const xls_writing& run, xls::worksheet& out, const sheet& from, std::size_t row)
{
    write_row(run, out, from, row, [](std::size_t, std::string_view) {});
}

/// A picture that the workbook does not take costs its row's picture.
void insert_picture(const xls_writing& run, xls::worksheet& out, const sheet& from, std::size_t row)
{
    const std::optional<row_picture> picture = from.picture(row);
    if (!picture)
        return;
    try {
        out.set_row(row, picture->row_height);
        out.insert_image(row, *from.picture_column, picture->jpeg, xls::highest_row);
    } catch (const xls::workbook_error& error) {
        log(run.what.out, std::string("no thumbnail: ") + error.what());
        run.lost.add(loss_kind::absent_pictures);
    }
}

/// The records and what stands below them, with the widths that come of them.
void write_records(const xls_writing& run, xls::worksheet& out, const sheet& from)
{
    growing_widths widths(from);
    sheet_progress steps(from, run.what.display);
    const std::size_t first = from.header_row + 1;
    for (std::size_t record = 0; record < from.record_count; ++record) {
        steps.pass(record);
        const std::size_t row = first + record;
        if (from.picture)
            insert_picture(run, out, from, row);
        write_row(run, out, from, row,
                  [&](std::size_t column, std::string_view text) { widths.see(column, text); });
    }
    steps.finish();
    for (std::size_t row = first + from.record_count; row < from.row_count; ++row)
        write_row(run, out, from, row);

    const std::vector<double> finished = widths.finished();
    for (std::size_t column = 0; column < finished.size(); ++column) {
        if (finished[column] != 0)
            out.set_column(column, column, finished[column],
                           format_of(from.columns[column].empty_look, run.formats));
    }
}

void write_sheets(const xls_writing& run, xls::workbook& book)
{
    struct waiting_sheet {
        const sheet& from;
        xls::worksheet& out;
    };
    std::vector<waiting_sheet> waiting;
    for (const sheet& from : run.what.sheets) {
        xls::worksheet& out = book.add_worksheet(from.name);
        out.freeze_panes(from.frozen_rows, 0);
        for (std::size_t row = 0; row <= from.header_row; ++row)
            write_row(run, out, from, row);
        if (from.follows_others)
            waiting.push_back({from, out});
        else
            write_records(run, out, from);
    }
    for (const auto& [from, out] : waiting)
        write_records(run, out, from);
}

void add_cut_texts(const xls::workbook& book, account& lost)
{
    for (const xls::cut_text& cut : book.cut_texts())
        lost.add(loss_kind::cut_texts, 1, cut.sheet + ", row " + std::to_string(cut.row + 1));
}

account write_workbook(const writing& what)
{
    account lost;
    xls::workbook book(what.path);
    book.set_properties({what.title, std::string(application::name)});
    book.set_log([&](std::string_view sentence) { log(what.out, sentence); });
    const look_formats formats = add_formats(book, what.colors);
    write_sheets({what, formats, lost}, book);
    add_cut_texts(book, lost);
    what.display.spin("Saving spreadsheet...\n");
    book.close(what.before_it_appears);
    return lost;
}

/// Runs an operation of the workbook library, whose failures become the report's.
template <class Operation>
auto with_own_failures(const Operation& operation)
{
    try {
        return operation();
    } catch (const xls::too_many_rows& error) {
        throw sheet_too_long(error.sheet, visible_text(error.what()));
    } catch (const xls::workbook_error& error) {
        throw failure(visible_text(error.what())); // it names the file
    }
}

account write_xls(const writing& what)
{
    return with_own_failures([&] { return write_workbook(what); });
}

void check_xls_place(const std::filesystem::path& path)
{
    with_own_failures([&] { xls::check_target(path); });
}

} // namespace

const file_format xls_workbooks = {write_xls, check_xls_place};

} // namespace tallyframe
