// SPDX-License-Identifier: MIT
//
//     BOF
//     settings, WINDOW1, settings
//     FONT ... FORMAT ... XF ... STYLE, PALETTE
//     BOUNDSHEET ...                               the sheets' names and where they start
//     MSODRAWINGGROUP, CONTINUE ...
//     SST, CONTINUE ... EXTSST
//     EOF
//     sheet, sheet ...
#include "workbook/records/workbook_stream.h"

#include "workbook/records/globals_records.h"
#include "workbook/records/setting_records.h"
#include "workbook/records/unicode.h"

#include <algorithm>
#include <cstdint>

namespace xls {

namespace {

constexpr std::size_t stream_limit = 0x7F000000; ///< a compound file ends at 2 GB, its own tables included

std::vector<sheet_shapes> shapes_of(const std::vector<std::unique_ptr<sheet_content>>& sheets)
{
    std::vector<sheet_shapes> all;
    std::uint32_t drawing = 0;
    std::size_t cluster = 1;
    for (const auto& sheet : sheets) {
        const auto count = sheet->pictures.empty() ? 0 : sheet->pictures.size() + 1;
        all.push_back({.drawing = count == 0 ? 0 : ++drawing,
                       .first_shape = static_cast<std::uint32_t>(cluster * shapes_in_cluster),
                       .count = static_cast<std::uint32_t>(count)});
        cluster += (count + shapes_in_cluster - 1) / shapes_in_cluster;
    }
    return all;
}

} // namespace

workbook_stream::workbook_stream(const workbook_content& content)
{
    records::bof(globals_, records::substream::globals);
    records::settings_before_window(globals_, content.sheets.size());
    records::window1(globals_);
    records::settings_behind_window(globals_);
    content.formats.write(globals_);
    std::vector<std::size_t> position_offsets;
    for (const auto& sheet : content.sheets)
        position_offsets.push_back(records::bound_sheet(globals_, to_utf16(sheet->name)));
    const auto shapes = shapes_of(content.sheets);
    if (content.pictures.size() != 0)
        content.pictures.write(globals_, shapes);
    content.strings.write(globals_);
    records::eof(globals_);

    size_ = globals_.size();
    for (const auto& sheet : content.sheets) {
        globals_.patch_u32(position_offsets[sheets_.size()], static_cast<std::uint32_t>(size_));
        sheets_.emplace_back(*sheet,
                             sheet_frame{.formats = content.formats,
                                         .shapes = shapes[sheets_.size()],
                                         .selected = sheets_.empty(),
                                         .position = size_});
        size_ += sheets_.back().size();
        if (size_ > stream_limit)
            throw workbook_error(
                "The workbook is larger than 2 GB, which no .xls file can be. Write less into it.");
    }
}

void workbook_stream::write(const byte_sink& sink) const
{
    sink(globals_.view());
    for (const auto& sheet : sheets_)
        sheet.write(sink);
}

void drop_unused_texts(workbook_content& content)
{
    const auto replaced = [](const auto& sheet) { return sheet->cells.has_replaced_cells(); };
    if (std::ranges::none_of(content.sheets, replaced))
        return;
    std::vector<std::uint32_t> uses(content.strings.size());
    for (auto& sheet : content.sheets)
        sheet->cells.renumber_texts([&](std::uint32_t text) {
            ++uses[text];
            return text;
        });
    const auto new_numbers = content.strings.drop_unused(uses);
    for (auto& sheet : content.sheets)
        sheet->cells.renumber_texts([&](std::uint32_t text) { return new_numbers[text]; });
}

} // namespace xls
