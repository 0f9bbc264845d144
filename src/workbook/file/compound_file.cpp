// SPDX-License-Identifier: MIT
//
//     header       signature: 8 bytes | 0: 16 bytes | version: u16 u16 | byte order FFFE: u16 |
//                  a sector and a piece as powers of two: u16 u16 | 0: 10 bytes | sectors of the table: u32 |
//                  directory: u32 | 0: u32 | least size of a stream in sectors: u32 | piece table: u32 |
//                  its sectors: u32 | list of the table: u32 | its sectors: u32 |
//                  the first 109 sectors of the table: u32 each
//
// and then sectors of 512 bytes, counted from 0:
//
//     Workbook     the BIFF8 records, when they are 4096 bytes or more
//     pieces       the shorter streams, each in pieces of 64 bytes:
//                      Workbook, when it is shorter
//                      \005SummaryInformation
//     piece table  for each piece the next one of its stream: u32
//     directory    root, Workbook, \005SummaryInformation and an empty place, 128 bytes each:
//                      name: 32 × u16 | bytes of the name: u16 | kind: u8 | colour: u8 |
//                      left, right, child: u32 u32 u32 | class and times 0: 36 bytes |
//                      first sector or piece: u32 | size: u32 | 0: u32
//     table        for each sector the next one of what it belongs to: u32
//     list         the table's sectors from the 110th on: 127 × u32 | the list's next sector: u32
#include "workbook/file/compound_file.h"

#include "workbook/file/summary_information.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>

namespace xls {

namespace {

constexpr std::size_t sector_size = 512;
constexpr std::size_t piece_size = 64;
constexpr std::size_t least_size_in_sectors = 4096;
constexpr std::size_t numbers_in_sector = sector_size / sizeof(std::uint32_t);
constexpr std::size_t list_in_header = 109;
constexpr std::size_t list_in_sector = numbers_in_sector - 1; ///< the last number leads to the next sector

constexpr std::uint32_t no_sector = 0xFFFFFFFF;
constexpr std::uint32_t end_of_chain = 0xFFFFFFFE;
constexpr std::uint32_t sector_of_table = 0xFFFFFFFD;
constexpr std::uint32_t sector_of_list = 0xFFFFFFFC;

std::uint32_t u32_of(std::size_t number)
{
    return static_cast<std::uint32_t>(number);
}

std::size_t parts_of(std::size_t size, std::size_t part)
{
    return (size + part - 1) / part;
}

void fill_up(byte_writer& out, std::size_t part)
{
    out.zeros(parts_of(out.size(), part) * part - out.size());
}

/// Sectors, or pieces, that follow one another.
struct stretch {
    std::size_t first = 0;
    std::size_t end = 0;

    std::size_t count() const { return end - first; }
    /// The number that leads to it.
    std::uint32_t start() const { return count() == 0 ? end_of_chain : u32_of(first); }
};

/// Where everything is. Everything is in one stretch, in the order of the file.
struct file_layout {
    file_layout(std::size_t workbook_bytes, std::size_t property_bytes);

    std::size_t size() const { return (1 + list.end) * sector_size; }

    std::size_t workbook_size;
    std::size_t properties_size;
    bool workbook_is_in_pieces;
    stretch workbook;
    stretch pieces;
    stretch piece_table;
    stretch directory;
    stretch table;
    stretch list;
    stretch workbook_pieces;
    stretch properties_pieces;
};

file_layout::file_layout(std::size_t workbook_bytes, std::size_t property_bytes)
    : workbook_size(workbook_bytes), properties_size(property_bytes),
      workbook_is_in_pieces(workbook_bytes < least_size_in_sectors)
{
    if (workbook_is_in_pieces)
        workbook_pieces.end = parts_of(workbook_size, piece_size);
    else
        workbook.end = parts_of(workbook_size, sector_size);
    properties_pieces.first = workbook_pieces.end;
    properties_pieces.end = properties_pieces.first + parts_of(properties_size, piece_size);
    pieces = {workbook.end, workbook.end + parts_of(properties_pieces.end * piece_size, sector_size)};
    piece_table = {pieces.end, pieces.end + parts_of(properties_pieces.end, numbers_in_sector)};
    directory = {piece_table.end, piece_table.end + 1};

    // The table has numbers for itself and for its list: both grow until they suffice.
    std::size_t wanted = 0;
    table = list = {directory.end, directory.end};
    while ((wanted = parts_of(list.end, numbers_in_sector)) != table.count()) {
        const auto listed_elsewhere = wanted - std::min(wanted, list_in_header);
        table.end = table.first + wanted;
        list = {table.end, table.end + parts_of(listed_elsewhere, list_in_sector)};
    }
}

/// The number of each one's successor.
void write_chain(byte_writer& out, const stretch& chain)
{
    for (auto next = chain.first + 1; next < chain.end; ++next)
        out.u32(u32_of(next));
    if (chain.count() != 0)
        out.u32(end_of_chain);
}

void write_repeated(byte_writer& out, std::size_t count, std::uint32_t number)
{
    for (std::size_t i = 0; i < count; ++i)
        out.u32(number);
}

/// Numbers of sectors that are not there, up to the end of the sector.
void write_no_sectors(byte_writer& out)
{
    while (out.size() % sector_size != 0)
        out.u32(no_sector);
}

byte_writer header_of(const file_layout& layout)
{
    constexpr std::array<std::uint8_t, 8> signature{0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
    byte_writer out;
    out.bytes(signature);
    out.zeros(16);
    out.u16(0x3E);
    out.u16(3);
    out.u16(0xFFFE);
    out.u16(9);
    out.u16(6);
    out.zeros(10);
    out.u32(u32_of(layout.table.count()));
    out.u32(layout.directory.start());
    out.u32(0);
    out.u32(least_size_in_sectors);
    out.u32(layout.piece_table.start());
    out.u32(u32_of(layout.piece_table.count()));
    out.u32(layout.list.start());
    out.u32(u32_of(layout.list.count()));
    for (std::size_t i = 0; i < std::min(list_in_header, layout.table.count()); ++i)
        out.u32(u32_of(layout.table.first + i));
    write_no_sectors(out);
    return out;
}

struct directory_entry {
    std::u16string_view name;
    std::uint8_t kind;
    std::uint32_t right;
    std::uint32_t child;
    std::uint32_t start;
    std::size_t size;
};

void write_entry(byte_writer& out, const directory_entry& entry)
{
    constexpr std::size_t name_units = 32;
    constexpr std::uint8_t black = 1;
    for (const char16_t unit : entry.name)
        out.u16(unit);
    out.zeros((name_units - entry.name.size()) * sizeof(char16_t));
    out.u16(static_cast<std::uint16_t>((entry.name.size() + 1) * sizeof(char16_t)));
    out.u8(entry.kind);
    out.u8(black);
    out.u32(no_sector);
    out.u32(entry.right);
    out.u32(entry.child);
    out.zeros(36);
    out.u32(entry.start);
    out.u32(u32_of(entry.size));
    out.u32(0);
}

void write_directory(byte_writer& out, const file_layout& layout)
{
    constexpr std::uint8_t root = 5;
    constexpr std::uint8_t stream = 2;
    constexpr std::uint32_t none = no_sector;
    const auto& workbook = layout.workbook_is_in_pieces ? layout.workbook_pieces : layout.workbook;
    const auto pieces_size = layout.properties_pieces.end * piece_size;
    write_entry(out, {u"Root Entry", root, none, 1, layout.pieces.start(), pieces_size});
    write_entry(out, {u"Workbook", stream, 2, none, workbook.start(), layout.workbook_size});
    write_entry(out,
                {u"\005SummaryInformation", stream, none, none, layout.properties_pieces.start(),
                 layout.properties_size});
    fill_up(out, sector_size);
}

void write_table(byte_writer& out, const file_layout& layout)
{
    for (const auto& chain : {layout.workbook, layout.pieces, layout.piece_table, layout.directory})
        write_chain(out, chain);
    write_repeated(out, layout.table.count(), sector_of_table);
    write_repeated(out, layout.list.count(), sector_of_list);
    write_no_sectors(out);
}

void write_list(byte_writer& out, const file_layout& layout)
{
    auto listed = layout.table.first + list_in_header;
    for (auto sector = layout.list.first; sector < layout.list.end; ++sector) {
        for (std::size_t i = 0; i < list_in_sector; ++i, ++listed)
            out.u32(listed < layout.table.end ? u32_of(listed) : no_sector);
        out.u32(sector + 1 < layout.list.end ? u32_of(sector + 1) : end_of_chain);
    }
}

/// Hands on the stream and fills its last part up.
void write_workbook(const byte_sink& out, const compound_content& content, std::size_t part)
{
    std::size_t written = 0;
    content.write_workbook([&](byte_view bytes) {
        written += bytes.size();
        out(bytes);
    });
    if (written != content.workbook_size)
        throw workbook_error("The workbook came out incomplete and was not saved. Save it once more.");
    byte_writer rest;
    rest.zeros(parts_of(written, part) * part - written);
    out(rest.view());
}

void write_to(const byte_sink& out, const compound_content& content, const file_layout& layout,
              const byte_writer& properties)
{
    out(header_of(layout).view());
    byte_writer behind_workbook;
    if (layout.workbook_is_in_pieces)
        write_workbook([&](byte_view bytes) { behind_workbook.bytes(bytes); }, content, piece_size);
    else
        write_workbook(out, content, sector_size);
    behind_workbook.bytes(properties.view());
    fill_up(behind_workbook, sector_size);
    write_chain(behind_workbook, layout.workbook_pieces);
    write_chain(behind_workbook, layout.properties_pieces);
    write_no_sectors(behind_workbook);
    write_directory(behind_workbook, layout);
    write_table(behind_workbook, layout);
    write_list(behind_workbook, layout);
    out(behind_workbook.view());
}

void check(bool is_done)
{
    if (!is_done)
        throw std::system_error(errno != 0 ? errno : EIO, std::generic_category());
}

} // namespace

void write_compound_file(std::FILE* file, const compound_content& content)
{
    const auto properties = summary_information(content.title, content.application);
    const file_layout layout(content.workbook_size, properties.size());
    const auto to_disk = [&](byte_view bytes) {
        if (bytes.empty())
            return;
        errno = 0;
        check(std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
    };
    write_to(to_disk, content, layout, properties);
    errno = 0;
    check(std::fflush(file) == 0 && std::ftell(file) == static_cast<long>(layout.size()));
}

std::vector<std::uint8_t> compound_file_bytes(const compound_content& content)
{
    const auto properties = summary_information(content.title, content.application);
    const file_layout layout(content.workbook_size, properties.size());
    byte_writer bytes;
    bytes.reserve(layout.size());
    write_to([&](byte_view part) { bytes.bytes(part); }, content, layout, properties);
    return bytes.take();
}

} // namespace xls
