// SPDX-License-Identifier: MIT
// Any calls to the workbook writer, with any texts, numbers and formats: the file holds what was written.
#include "fuzz/promise.h"
#include "fuzz/workbook_reader.h"
#include "workbook/records/unicode.h"
#include "workbook/workbook.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>

namespace tallyframe::fuzz {

namespace {

constexpr std::size_t row_limit = 65'536;
constexpr std::size_t column_limit = 256;

/// A workbook and what it should hold.
struct book_in_progress {
    FuzzedDataProvider& choices;
    xls::workbook book{"unused"};
    std::vector<xls::worksheet*> worksheets{};
    std::vector<read_sheet> expected{};
    std::vector<xls::format_id> formats{{}};
    bool goes_beyond_limits = false;

    std::size_t any_index(std::size_t size)
    {
        return choices.ConsumeIntegralInRange<std::size_t>(0, size - 1);
    }
    xls::format_id any_format() { return formats[any_index(formats.size())]; }
};

/// Lengths around the limits of cells and records come from repeating few bytes.
std::string any_text(FuzzedDataProvider& choices)
{
    constexpr std::size_t longest = 40'000;
    std::string part = choices.ConsumeRandomLengthString(40);
    if (part.empty() || choices.ConsumeIntegralInRange(0, 7) != 0)
        return part;
    std::string text;
    const auto size = choices.ConsumeIntegralInRange<std::size_t>(0, longest);
    while (text.size() < size)
        text += part;
    return text;
}

double any_number(FuzzedDataProvider& choices)
{
    switch (choices.ConsumeIntegralInRange(0, 2)) {
    case 0:
        return choices.ConsumeIntegral<std::int32_t>();
    case 1:
        return choices.ConsumeIntegral<std::int32_t>() / 100.0;
    default:
        return std::bit_cast<double>(choices.ConsumeIntegral<std::uint64_t>());
    }
}

cell_content number_content(double value)
{
    if (!std::isfinite(value))
        return number_error_cell();
    return std::bit_cast<std::uint64_t>(value);
}

cell_content text_content(const std::string& text)
{
    constexpr std::size_t longest_text = 32'767;
    if (text.empty())
        return blank_cell();
    return xls::to_utf16(xls::valid_utf8(text, longest_text).utf8);
}

void add_format(book_in_progress& work)
{
    FuzzedDataProvider& choices = work.choices;
    xls::format format;
    format.font = choices.ConsumeRandomLengthString(32);
    format.size = any_number(choices);
    format.bold = choices.ConsumeBool();
    format.wrap = choices.ConsumeBool();
    format.align = choices.PickValueInArray(
        {xls::alignment::general, xls::alignment::left, xls::alignment::center, xls::alignment::right});
    format.color = choices.ConsumeRandomLengthString(8);
    format.number_format = choices.ConsumeRandomLengthString(260);
    try {
        work.formats.push_back(work.book.add_format(format));
    } catch (const xls::workbook_error&) {
    }
}

void add_worksheet(book_in_progress& work)
{
    const std::string name = work.choices.ConsumeRandomLengthString(100);
    try {
        work.worksheets.push_back(&work.book.add_worksheet(name));
        work.expected.push_back({xls::to_utf16(name), {}});
    } catch (const xls::workbook_error&) {
    }
}

struct place {
    std::size_t row;
    std::size_t column;
};

place any_place(FuzzedDataProvider& choices)
{
    const auto row = choices.ConsumeIntegralInRange(0, 7) == 0
        ? choices.ConsumeIntegralInRange<std::size_t>(0, row_limit)
        : choices.ConsumeIntegral<std::uint8_t>();
    return {row, choices.ConsumeIntegralInRange<std::size_t>(0, column_limit)};
}

/// Notes what a cell is expected to hold from now on.
void expect(book_in_progress& work, std::size_t sheet, place at, cell_content content)
{
    if (at.row < row_limit && at.column < column_limit)
        work.expected[sheet].cells[{at.row, at.column}] = std::move(content);
    else
        work.goes_beyond_limits = true;
}

void write_cell(book_in_progress& work, std::size_t sheet)
{
    const place at = any_place(work.choices);
    const xls::format_id format = work.any_format();
    xls::worksheet& worksheet = *work.worksheets[sheet];
    switch (work.choices.ConsumeIntegralInRange(0, 2)) {
    case 0: {
        const std::string text = any_text(work.choices);
        worksheet.write_string(at.row, at.column, text, format);
        return expect(work, sheet, at, text_content(text));
    }
    case 1: {
        const double value = any_number(work.choices);
        worksheet.write_number(at.row, at.column, value, format);
        return expect(work, sheet, at, number_content(value));
    }
    default:
        worksheet.write_blank(at.row, at.column, format);
        return expect(work, sheet, at, blank_cell());
    }
}

/// A column of texts that differ by a number.
void write_column(book_in_progress& work, std::size_t sheet)
{
    place at = any_place(work.choices);
    const xls::format_id format = work.any_format();
    const std::string text = work.choices.ConsumeRandomLengthString(300);
    for (auto count = work.choices.ConsumeIntegral<std::uint8_t>(); count > 0; --count, ++at.row) {
        const std::string numbered = text + std::to_string(count);
        work.worksheets[sheet]->write_string(at.row, at.column, numbered, format);
        expect(work, sheet, at, text_content(numbered));
    }
}

void lay_out(book_in_progress& work, std::size_t sheet)
{
    const place from = any_place(work.choices);
    const place to = any_place(work.choices);
    xls::worksheet& worksheet = *work.worksheets[sheet];
    switch (work.choices.ConsumeIntegralInRange(0, 2)) {
    case 0:
        return worksheet.set_column(from.column, to.column, any_number(work.choices), work.any_format());
    case 1:
        return worksheet.set_row(from.row, any_number(work.choices));
    default:
        return worksheet.freeze_panes(from.row, from.column);
    }
}

void do_something(book_in_progress& work)
{
    const int what = work.choices.ConsumeIntegralInRange(0, 9);
    if (what == 0)
        return add_format(work);
    if (what == 1 || work.worksheets.empty())
        return add_worksheet(work);
    if (what == 2)
        return work.book.set_properties({any_text(work.choices), any_text(work.choices)});
    const std::size_t sheet = work.any_index(work.worksheets.size());
    if (what == 3)
        return lay_out(work, sheet);
    if (what == 4)
        return write_column(work, sheet);
    write_cell(work, sheet);
}

void check(book_in_progress& work)
{
    const bool must_fail = work.goes_beyond_limits || work.worksheets.empty();
    std::vector<std::uint8_t> bytes;
    try {
        bytes = work.book.to_bytes();
    } catch (const xls::workbook_error&) {
        promise(must_fail, "a workbook within the limits is written");
        return;
    }
    promise(!must_fail, "a workbook beyond the limits is not written");
    const std::vector<read_sheet> sheets = read_workbook(bytes);
    promise(sheets.size() == work.expected.size(), "the file has the sheets");
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        promise(sheets[i].name == work.expected[i].name, "a sheet has its name");
        promise(sheets[i].cells == work.expected[i].cells, "a sheet has its cells");
    }
    promise(work.book.to_bytes() == bytes, "writing twice gives the same bytes");
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tallyframe::fuzz;
    FuzzedDataProvider choices(data, size);
    book_in_progress work{choices};
    while (choices.remaining_bytes() > 0)
        do_something(work);
    check(work);
    return 0;
}
