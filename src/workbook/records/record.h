// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

namespace xls {

/// The record kinds of BIFF8 that a workbook needs, by their numbers in [MS-XLS] 2.3.
enum class record_id : std::uint16_t {
    eof = 0x000A,
    calculation_count = 0x000C,
    calculation_mode = 0x000D,
    precision = 0x000E,
    reference_mode = 0x000F,
    delta = 0x0010,
    iteration = 0x0011,
    protect = 0x0012,
    password = 0x0013,
    header = 0x0014,
    footer = 0x0015,
    window_protect = 0x0019,
    selection = 0x001D,
    date_mode = 0x0022,
    print_headers = 0x002A,
    print_grid = 0x002B,
    font = 0x0031,
    continuation = 0x003C,
    window1 = 0x003D,
    backup = 0x0040,
    pane = 0x0041,
    codepage = 0x0042,
    default_column_width = 0x0055,
    write_access = 0x005C,
    object = 0x005D,
    save_recalculated = 0x005F,
    column_info = 0x007D,
    guts = 0x0080,
    ws_bool = 0x0081,
    grid_set = 0x0082,
    center_horizontally = 0x0083,
    center_vertically = 0x0084,
    bound_sheet = 0x0085,
    hide_objects = 0x008D,
    palette = 0x0092,
    function_group_count = 0x009C,
    setup = 0x00A1,
    mul_blank = 0x00BE,
    mms = 0x00C1,
    db_cell = 0x00D7,
    book_bool = 0x00DA,
    xf = 0x00E0,
    interface_header = 0x00E1,
    interface_end = 0x00E2,
    drawing_group = 0x00EB,
    drawing = 0x00EC,
    sst = 0x00FC,
    label_sst = 0x00FD,
    ext_sst = 0x00FF,
    tab_id = 0x013D,
    double_stream_file = 0x0161,
    revision_protect = 0x01AF,
    refresh_all = 0x01B7,
    revision_password = 0x01BC,
    dimensions = 0x0200,
    blank = 0x0201,
    number = 0x0203,
    bool_err = 0x0205,
    row = 0x0208,
    index = 0x020B,
    default_row_height = 0x0225,
    window2 = 0x023E,
    rk = 0x027E,
    style = 0x0293,
    format = 0x041E,
    bof = 0x0809,
};

inline constexpr std::size_t record_header_size = 4;
inline constexpr std::size_t record_limit = 8224; ///< most bytes behind a record's header

/// Writes a record's header, and when it ends, the length of what was written since.
///
///     +---------+---------+-----------------------+
///     | id: u16 | n: u16  | n bytes, at most 8224 |
///     +---------+---------+-----------------------+
class record {
public:
    record(byte_writer& out, record_id id) : out_(out) { begin(id); }
    ~record() { end(); }
    record(const record&) = delete;
    record& operator=(const record&) = delete;

    std::size_t size() const { return out_.size() - start_; }

protected:
    void begin(record_id id)
    {
        out_.u16(static_cast<std::uint16_t>(id));
        out_.u16(0);
        start_ = out_.size();
    }
    void end() { out_.patch_u16(start_ - sizeof(std::uint16_t), static_cast<std::uint16_t>(size())); }

private:
    byte_writer& out_;
    std::size_t start_ = 0;
};

/// A record that goes on in CONTINUE records when it is full. Where to break is the caller's to choose.
class continued_record : public record {
public:
    using record::record;

    std::size_t room() const { return record_limit - size(); }
    std::size_t position() const { return record_header_size + size(); } ///< from the header's start

    void next()
    {
        end();
        begin(record_id::continuation);
    }
};

} // namespace xls
