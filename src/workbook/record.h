// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/byte_writer.h"

namespace xls {

/// The record kinds of BIFF8 that a workbook needs, by their numbers in [MS-XLS] 2.3.
enum class record_id : std::uint16_t {
    eof = 0x000A,
    selection = 0x001D,
    date_mode = 0x0022,
    font = 0x0031,
    continuation = 0x003C,
    window1 = 0x003D,
    pane = 0x0041,
    codepage = 0x0042,
    default_column_width = 0x0055,
    object = 0x005D,
    column_info = 0x007D,
    bound_sheet = 0x0085,
    palette = 0x0092,
    mul_blank = 0x00BE,
    db_cell = 0x00D7,
    xf = 0x00E0,
    drawing_group = 0x00EB,
    drawing = 0x00EC,
    sst = 0x00FC,
    label_sst = 0x00FD,
    ext_sst = 0x00FF,
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
