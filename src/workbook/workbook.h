// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/format.h"
#include "workbook/worksheet.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace xls {

struct workbook_content;

/// What went wrong, as a sentence for the user.
class workbook_error : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A sheet has more rows than an Excel 97-2003 sheet holds (65 536). what() names the sheet and its rows.
class too_many_rows : public workbook_error {
public:
    too_many_rows(std::string sheet_name, std::size_t row_count);
    std::string sheet;
    std::size_t rows;
};

/// What file managers and Excel show of a file; an empty text is left out.
struct document_properties {
    std::string title = {};
    std::string application = {};
};

/// Throws the workbook_error that close would end with now for a path that takes no file. An older file there
/// stays; a new one beside it comes and goes.
void check_target(const std::filesystem::path& path);

/// A cell whose text was cut. Row and column count from 0.
struct cut_text {
    std::string sheet;
    std::size_t row;
    std::size_t column;

    bool operator==(const cut_text&) const = default;
};

/// An Excel 97-2003 workbook (BIFF8 records in an OLE2 compound file), kept in memory until close.
class workbook {
public:
    /// `path`: the file that close writes. Nothing is touched on the disk before.
    explicit workbook(std::filesystem::path path);

    void set_properties(document_properties properties);

    /// Called with a sentence whenever something had to be cut.
    void set_log(std::function<void(std::string_view)> log);

    /// The texts that had to be cut so far, each where it was written first.
    const std::vector<cut_text>& cut_texts() const;

    /// Throws workbook_error for a colour that is_color refuses, a font name that is empty or longer than 31
    /// characters, a number format longer than 255, and when the file has no room for a further look: it
    /// holds 4 000 formats, 512 fonts, 200 number formats and 40 colours besides the named ones.
    format_id add_format(const format& format);

    /// Throws workbook_error for a name that Excel refuses: empty, over 31 UTF-16 units, one of []:*?/\ or a
    /// control character in it, an apostrophe at either end, "History", or taken already (letter case
    /// ignored). The reference stays valid as long as the workbook lives.
    worksheet& add_worksheet(std::string_view name);

    /// Writes the file: whole beside its target first, then moved over it, so that a failure leaves an older
    /// file as it was and nothing else behind. Follows a symbolic link to its target, keeps the permissions
    /// of an older file, and refuses one that is read-only. Throws workbook_error (nothing on the disk has
    /// changed) or too_many_rows (raised before a byte is written). May be called again after a failure.
    ///
    /// `before_publishing`: called when the new file is whole, on the disk and about to be moved over the
    /// target. What it throws ends the saving like a failure of the disk.
    void close(const std::function<void()>& before_publishing = {});

    /// The bytes that close would write. Throws as close does, the disk's failures excepted.
    std::vector<std::uint8_t> to_bytes();

    ~workbook();
    workbook(const workbook&) = delete;
    workbook& operator=(const workbook&) = delete;

private:
    std::filesystem::path path_;
    std::unique_ptr<workbook_content> content_;
};

} // namespace xls
