// SPDX-License-Identifier: MIT
#include "workbook/workbook.h"

#include "workbook/file/compound_file.h"
#include "workbook/file/saved_file.h"
#include "workbook/records/unicode.h"
#include "workbook/records/workbook_content.h"
#include "workbook/records/workbook_stream.h"
#include "workbook/sheet_name.h"

#include <system_error>
#include <utility>

namespace xls {

namespace {

constexpr std::size_t property_limit = 255; ///< characters of a title

std::string with_thousands(std::size_t number)
{
    constexpr std::size_t group = 3;
    auto digits = std::to_string(number);
    for (auto end = digits.size(); end > group; end -= group)
        digits.insert(end - group, 1, ',');
    return digits;
}

/// What the file is to hold, once it is clear that it can.
compound_content finished_content(workbook_content& content)
{
    if (content.sheets.empty())
        throw workbook_error("A workbook needs at least one sheet.");
    for (const auto& sheet : content.sheets) {
        if (sheet->rows_wanted > row_limit)
            throw too_many_rows(sheet->name, sheet->rows_wanted);
        if (sheet->columns_wanted > column_limit)
            throw workbook_error("The sheet \"" + sheet->name + "\" has "
                                 + with_thousands(sheet->columns_wanted)
                                 + " columns, but an Excel 97-2003 sheet holds 256. Choose fewer columns.");
    }
    drop_unused_texts(content);
    const auto stream = std::make_shared<const workbook_stream>(content);
    return {
        .title = valid_utf8(content.properties.title, property_limit).utf8,
        .application = valid_utf8(content.properties.application, property_limit).utf8,
        .workbook_size = stream->size(),
        .write_workbook = [stream](const byte_sink& sink) { stream->write(sink); },
    };
}

} // namespace

too_many_rows::too_many_rows(std::string sheet_name, std::size_t row_count)
    : workbook_error("The sheet \"" + sheet_name + "\" has " + with_thousands(row_count)
                     + " rows, but an Excel 97-2003 sheet holds 65,536."),
      sheet(std::move(sheet_name)), rows(row_count)
{
}

void check_target(const std::filesystem::path& path)
{
    const saved_file probe(path);
}

workbook::workbook(std::filesystem::path path)
    : path_(std::move(path)), content_(std::make_unique<workbook_content>())
{
}

workbook::~workbook() = default;

void workbook::set_properties(document_properties properties)
{
    content_->properties = std::move(properties);
}

void workbook::set_log(std::function<void(std::string_view)> log)
{
    content_->log = std::move(log);
}

const std::vector<cut_text>& workbook::cut_texts() const
{
    return content_->cut_texts;
}

format_id workbook::add_format(const format& format)
{
    return content_->formats.add(format);
}

worksheet& workbook::add_worksheet(std::string_view name)
{
    auto key = sheet_name_key(name);
    if (!content_->sheet_name_keys.insert(std::move(key)).second)
        throw workbook_error("There is a sheet named \"" + std::string(name) + "\" already.");
    auto& sheet = *content_->sheets.emplace_back(std::make_unique<sheet_content>());
    sheet.name = name;
    content_->worksheets.push_back(std::unique_ptr<worksheet>(new worksheet(*content_, sheet)));
    return *content_->worksheets.back();
}

void workbook::close(const std::function<void()>& before_publishing)
{
    const auto content = finished_content(*content_);
    saved_file file(path_);
    try {
        write_compound_file(file.stream(), content);
    } catch (const std::system_error& error) {
        file.fail(error.code().value());
    }
    file.finish();
    if (before_publishing)
        before_publishing();
    file.publish();
}

std::vector<std::uint8_t> workbook::to_bytes()
{
    return compound_file_bytes(finished_content(*content_));
}

} // namespace xls
