// SPDX-License-Identifier: MIT
#include "fuzz/workbook_reader.h"

#include "fuzz/promise.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-memory.h>

#include <bit>
#include <memory>

namespace tallyframe::fuzz {

namespace {

using byte_span = std::span<const std::uint8_t>;

struct unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class Object>
using object_ptr = std::unique_ptr<Object, unref>;

std::vector<std::uint8_t> workbook_stream(byte_span file)
{
    const object_ptr<GsfInput> input(
        gsf_input_memory_new(file.data(), static_cast<gsf_off_t>(file.size()), FALSE));
    const object_ptr<GsfInfile> container(gsf_infile_msole_new(input.get(), nullptr));
    promise(container != nullptr, "the file is a compound file");
    const object_ptr<GsfInput> stream(gsf_infile_child_by_name(container.get(), "Workbook"));
    promise(stream != nullptr, "the compound file has a workbook");
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(gsf_input_size(stream.get())));
    promise(bytes.empty() || gsf_input_read(stream.get(), bytes.size(), bytes.data()) != nullptr,
            "the workbook can be read to its end");
    return bytes;
}

/// Reads the fields of a record one after the other, the low bytes of a number first.
class field_reader {
public:
    explicit field_reader(byte_span bytes) : rest_(bytes) { }

    std::size_t left() const { return rest_.size(); }
    std::uint8_t u8() { return static_cast<std::uint8_t>(number(1)); }
    std::uint16_t u16() { return static_cast<std::uint16_t>(number(2)); }
    std::uint32_t u32() { return static_cast<std::uint32_t>(number(4)); }
    std::uint64_t u64() { return number(8); }

    byte_span bytes(std::size_t size)
    {
        promise(size <= rest_.size(), "a record is as long as its fields");
        const byte_span taken = rest_.first(size);
        rest_ = rest_.subspan(size);
        return taken;
    }

private:
    std::uint64_t number(std::size_t size)
    {
        std::uint64_t value = 0;
        const byte_span taken = bytes(size);
        for (std::size_t i = size; i > 0; --i)
            value = value << 8 | taken[i - 1];
        return value;
    }

    byte_span rest_;
};

enum record_id : std::uint16_t {
    eof = 0x000A,
    continuation = 0x003C,
    bound_sheet = 0x0085,
    mul_blank = 0x00BE,
    xf = 0x00E0,
    sst = 0x00FC,
    label_sst = 0x00FD,
    ext_sst = 0x00FF,
    dimensions = 0x0200,
    blank = 0x0201,
    number = 0x0203,
    bool_err = 0x0205,
    rk = 0x027E,
    bof = 0x0809,
};

struct record {
    std::uint16_t id;
    std::size_t position;
    byte_span body;
};

/// The records from a BOF to its EOF, both included.
std::vector<record> substream(byte_span stream, std::size_t position)
{
    constexpr std::size_t longest_body = 8224;
    std::vector<record> records;
    do {
        promise(position <= stream.size(), "a sheet lies within the workbook");
        field_reader fields(stream.subspan(position));
        const std::uint16_t id = fields.u16();
        const std::uint16_t size = fields.u16();
        promise(size <= longest_body, "a record holds 8224 bytes at most");
        records.push_back({id, position, fields.bytes(size)});
        position += 4U + size;
    } while (records.back().id != eof);
    promise(records.front().id == bof, "a sheet begins with BOF");
    return records;
}

std::u16string units_of(field_reader& fields, std::size_t count, bool wide)
{
    std::u16string units;
    for (std::size_t i = 0; i < count; ++i)
        units += static_cast<char16_t>(wide ? fields.u16() : fields.u8());
    return units;
}

bool is_wide(std::uint8_t flags)
{
    promise(flags <= 1, "a text is plain: 8 or 16 bits a unit");
    return flags == 1;
}

/// The SST record and the CONTINUE records behind it, read as one table of texts.
class text_table {
public:
    text_table() = default;
    explicit text_table(std::span<const record> records)
    {
        for (const record& part : records) {
            if (&part != records.data() && part.id != continuation)
                break;
            parts_.push_back(part);
        }
        fields_ = field_reader(parts_.front().body);
        fields_.u32(); // the cells that use them
        const std::uint32_t count = fields_.u32();
        for (std::uint32_t i = 0; i < count; ++i)
            read_text();
        promise(fields_.left() == 0 && part_ + 1 == parts_.size(), "the table of texts ends with its texts");
    }

    const std::u16string& text(std::uint32_t number) const
    {
        promise(number < texts_.size(), "a cell's text is in the table");
        return texts_[number];
    }

    void check_index(const record& index) const
    {
        field_reader fields(index.body);
        const std::uint16_t bucket = fields.u16();
        promise(bucket != 0 || texts_.empty(), "the index of texts has steps");
        for (std::size_t i = 0; i < texts_.size(); i += bucket) {
            promise(fields.u32() == starts_[i].in_stream, "the index of texts knows where each starts");
            promise(fields.u16() == starts_[i].in_record, "and where in its record");
            fields.u16();
        }
        promise(fields.left() == 0, "the index ends with the texts");
    }

private:
    struct start {
        std::size_t in_stream;
        std::size_t in_record;
    };

    void next_part()
    {
        promise(++part_ < parts_.size(), "the table of texts goes on where it is not complete");
        fields_ = field_reader(parts_[part_].body);
    }

    void read_text()
    {
        if (fields_.left() == 0)
            next_part();
        const std::size_t in_record = 4 + parts_[part_].body.size() - fields_.left();
        starts_.push_back({parts_[part_].position + in_record, in_record});
        const std::size_t length = fields_.u16();
        bool wide = is_wide(fields_.u8());
        std::u16string text;
        while (true) {
            const std::size_t room = wide ? fields_.left() / 2 : fields_.left();
            text += units_of(fields_, std::min(length - text.size(), room), wide);
            if (text.size() == length)
                break;
            promise(fields_.left() == 0, "a text breaks between two units");
            next_part();
            wide = is_wide(fields_.u8());
        }
        texts_.push_back(std::move(text));
    }

    std::vector<record> parts_;
    std::size_t part_ = 0;
    field_reader fields_{{}};
    std::vector<std::u16string> texts_;
    std::vector<start> starts_;
};

std::uint64_t bits_of_rk(std::uint32_t compressed)
{
    double value = (compressed & 2U) != 0
        ? static_cast<double>(static_cast<std::int32_t>(compressed) >> 2)
        : std::bit_cast<double>(static_cast<std::uint64_t>(compressed & ~3U) << 32);
    if ((compressed & 1U) != 0)
        value /= 100;
    return std::bit_cast<std::uint64_t>(value);
}

/// The parts of the workbook that cells refer to.
struct workbook_globals {
    struct sheet {
        std::u16string name;
        std::size_t position;
    };
    std::vector<sheet> sheets;
    text_table texts;
    std::size_t format_count = 0;
};

workbook_globals read_globals(byte_span stream)
{
    workbook_globals globals;
    const std::vector<record> records = substream(stream, 0);
    for (std::size_t i = 0; i < records.size(); ++i) {
        field_reader fields(records[i].body);
        switch (records[i].id) {
        case bound_sheet: {
            const std::size_t position = fields.u32();
            fields.u16();
            const std::size_t length = fields.u8();
            const bool wide = is_wide(fields.u8());
            globals.sheets.push_back({units_of(fields, length, wide), position});
            promise(length >= 1 && length <= 31 && fields.left() == 0, "a sheet's name has 1 to 31 units");
            break;
        }
        case xf:
            ++globals.format_count;
            break;
        case sst:
            globals.texts = text_table(std::span(records).subspan(i));
            break;
        case ext_sst:
            globals.texts.check_index(records[i]);
            break;
        default:
            break;
        }
    }
    promise(!globals.sheets.empty(), "a workbook has a sheet");
    return globals;
}

class sheet_reader {
public:
    sheet_reader(const workbook_globals& globals, const workbook_globals::sheet& sheet) : globals_(globals)
    {
        sheet_.name = sheet.name;
    }

    read_sheet read(byte_span stream, std::size_t position)
    {
        for (const record& part : substream(stream, position))
            take_in(part);
        return std::move(sheet_);
    }

private:
    void take_in(const record& part)
    {
        field_reader fields(part.body);
        switch (part.id) {
        case dimensions:
            fields.u32();
            end_row_ = fields.u32();
            fields.u16();
            end_column_ = fields.u16();
            break;
        case label_sst:
            place(fields);
            put(globals_.texts.text(fields.u32()));
            break;
        case number:
            place(fields);
            put(fields.u64());
            break;
        case rk:
            place(fields);
            put(bits_of_rk(fields.u32()));
            break;
        case bool_err: {
            constexpr std::uint16_t number_error = 0x0124;
            place(fields);
            promise(fields.u16() == number_error, "an error is #NUM!");
            put(number_error_cell());
            break;
        }
        case blank:
            place(fields);
            put(blank_cell());
            break;
        case mul_blank:
            take_in_blanks(fields);
            break;
        default:
            break;
        }
    }

    void take_in_blanks(field_reader& fields)
    {
        row_ = fields.u16();
        column_ = fields.u16();
        for (; fields.left() > 2; ++column_) {
            format(fields);
            put(blank_cell());
        }
        promise(fields.u16() == column_ - 1, "a run of blanks knows its end");
    }

    void place(field_reader& fields)
    {
        row_ = fields.u16();
        column_ = fields.u16();
        format(fields);
    }

    void format(field_reader& fields) const
    {
        promise(fields.u16() < globals_.format_count, "a cell's format exists");
    }

    void put(cell_content content)
    {
        promise(row_ < end_row_ && column_ < end_column_, "a sheet's dimensions hold all its cells");
        promise(sheet_.cells.emplace(std::pair(row_, column_), std::move(content)).second,
                "a cell stands in the sheet once");
    }

    const workbook_globals& globals_;
    read_sheet sheet_;
    std::size_t row_ = 0;
    std::size_t column_ = 0;
    std::size_t end_row_ = 0;
    std::size_t end_column_ = 0;
};

} // namespace

std::vector<read_sheet> read_workbook(byte_span file)
{
    const std::vector<std::uint8_t> stream = workbook_stream(file);
    const workbook_globals globals = read_globals(stream);
    std::vector<read_sheet> sheets;
    for (const workbook_globals::sheet& sheet : globals.sheets)
        sheets.push_back(sheet_reader(globals, sheet).read(stream, sheet.position));
    return sheets;
}

} // namespace tallyframe::fuzz
