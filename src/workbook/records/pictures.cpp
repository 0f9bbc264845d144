// SPDX-License-Identifier: MIT
//
//     drawing group container
//         drawing group           last identifier + 1: u32 | clusters + 1: u32 | shapes: u32 |
//                                 drawings: u32 |
//                                 for each cluster its drawing: u32, identifiers used: u32
//         blip store container
//             blip store entry    kind: u8 u8 | identifier: 16 bytes | FF: u16 | blip size: u32 | uses: u32 |
//                                 0: 8 bytes
//                 blip            identifier: 16 bytes | FF: u8 | the picture file
//             ...
//         properties              of new shapes
//         split menu colours      the last colours picked, four times u32
//
// All of it fills one MSODRAWINGGROUP record and as many CONTINUE records as it takes.
#include "workbook/records/pictures.h"

#include "workbook/records/md5.h"
#include "workbook/records/office_art.h"
#include "workbook/records/record.h"

#include <algorithm>
#include <numeric>

namespace xls {

namespace {

namespace art = office_art;

constexpr std::size_t entry_size = 36;
constexpr std::size_t blip_head_size = 17;

/// How a kind of picture is marked: the entry's code, and the blip record's kind and instance.
struct blip_kind {
    std::uint8_t code;
    art::kind record;
    std::uint16_t instance;
};

blip_kind kind_of(picture_kind kind)
{
    switch (kind) {
    case picture_kind::jpeg:
        return {5, art::kind::jpeg, 0x46A};
    case picture_kind::cmyk_jpeg:
        return {5, art::kind::jpeg, 0x6E2};
    case picture_kind::png:
        break;
    }
    return {6, art::kind::png, 0x6E0};
}

std::size_t entry_content_size(const picture_file& file)
{
    return entry_size + art::header_size + blip_head_size + file.bytes.size();
}

std::size_t clusters_of(const sheet_shapes& sheet)
{
    return (sheet.count + shapes_in_cluster - 1) / shapes_in_cluster;
}

void write_drawing_group(byte_writer& out, const std::vector<sheet_shapes>& sheets)
{
    constexpr std::size_t fixed_size = 16;
    constexpr std::size_t cluster_size = 8;
    const auto clusters =
        std::transform_reduce(sheets.begin(), sheets.end(), std::size_t{0}, std::plus(), clusters_of);
    const auto shapes = std::transform_reduce(sheets.begin(), sheets.end(), std::uint32_t{0}, std::plus(),
                                              [](const auto& sheet) { return sheet.count; });
    const auto drawings = std::ranges::count_if(sheets, [](const auto& sheet) { return sheet.count != 0; });
    std::uint32_t end_of_shapes = 0;
    for (const auto& sheet : sheets)
        if (sheet.count != 0)
            end_of_shapes = sheet.first_shape + sheet.count;
    art::header(out, art::kind::drawing_group, 0, 0, fixed_size + clusters * cluster_size);
    out.u32(end_of_shapes);
    out.u32(static_cast<std::uint32_t>(clusters + 1));
    out.u32(shapes);
    out.u32(static_cast<std::uint32_t>(drawings));
    for (const auto& sheet : sheets) {
        for (std::size_t i = 0; i < clusters_of(sheet); ++i) {
            out.u32(sheet.drawing);
            out.u32(
                static_cast<std::uint32_t>(std::min(shapes_in_cluster, sheet.count - i * shapes_in_cluster)));
        }
    }
}

void write_defaults(byte_writer& out)
{
    constexpr art::property defaults[]{
        {0x00BF, 0x00080008}, // text fits the shape
        {0x0181, 0x08000041}, // fill: the window's colour
        {0x01C0, 0x08000040}, // line: the window text's colour
    };
    art::properties(out, defaults);
    constexpr std::array<std::uint32_t, 4> colors{0x0800000D, 0x0800000C, 0x08000017, 0x100000F7};
    art::header(out, art::kind::split_menu_colors, 0, colors.size(), sizeof(colors));
    for (const auto color : colors)
        out.u32(color);
}

/// Appends bytes to a record, at any place of which it may go on in another one.
void write_split(byte_writer& out, continued_record& record, byte_view bytes)
{
    while (!bytes.empty()) {
        if (record.room() == 0)
            record.next();
        const auto count = std::min(record.room(), bytes.size());
        out.bytes(bytes.first(count));
        bytes = bytes.subspan(count);
    }
}

} // namespace

std::uint32_t picture_store::add(picture_file file)
{
    const digest identifier = md5(file.bytes);
    const auto [found, is_new] =
        numbers_.try_emplace(identifier, static_cast<std::uint32_t>(pictures_.size() + 1));
    if (is_new)
        pictures_.push_back({std::move(file), identifier, 0});
    ++pictures_[found->second - 1].uses;
    return found->second;
}

void picture_store::write(byte_writer& out, const std::vector<sheet_shapes>& sheets) const
{
    constexpr std::size_t most_instances = 0xFFF;
    byte_writer group;
    write_drawing_group(group, sheets);
    byte_writer defaults;
    write_defaults(defaults);
    const auto store_size = std::transform_reduce(
        pictures_.begin(), pictures_.end(), std::size_t{0}, std::plus(),
        [](const auto& picture) { return art::header_size + entry_content_size(picture.file); });

    byte_writer head;
    art::header(head, art::kind::drawing_group_container, art::container, 0,
                group.size() + art::header_size + store_size + defaults.size());
    head.bytes(group.view());
    art::header(head, art::kind::blip_store_container, art::container,
                std::min(pictures_.size(), most_instances), store_size);

    const auto size = head.size() + store_size + defaults.size();
    out.reserve(out.size() + size + (size / record_limit + 1) * record_header_size);
    continued_record record(out, record_id::drawing_group);
    write_split(out, record, head.view());
    for (const auto& [file, identifier, uses] : pictures_) {
        const auto kind = kind_of(file.header.kind);
        const auto blip_size = blip_head_size + file.bytes.size();
        byte_writer entry;
        art::header(entry, art::kind::blip_store_entry, 2, kind.code, entry_content_size(file));
        entry.u8(kind.code);
        entry.u8(kind.code);
        entry.bytes(identifier);
        entry.u16(0xFF);
        entry.u32(static_cast<std::uint32_t>(art::header_size + blip_size));
        entry.u32(uses);
        entry.zeros(8);
        art::header(entry, kind.record, 0, kind.instance, blip_size);
        entry.bytes(identifier);
        entry.u8(0xFF);
        write_split(out, record, entry.view());
        write_split(out, record, file.bytes);
    }
    write_split(out, record, defaults.view());
}

} // namespace xls
