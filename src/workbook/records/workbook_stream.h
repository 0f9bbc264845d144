// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"
#include "workbook/records/sheet_stream.h"
#include "workbook/records/workbook_content.h"

#include <cstddef>
#include <vector>

namespace xls {

/// The stream "Workbook" of the file: the records of the workbook as a whole, then its sheets.
class workbook_stream {
public:
    /// `content` must outlive this and stay as it is. Throws workbook_error when the stream gets larger than
    /// the file can be.
    explicit workbook_stream(const workbook_content& content);

    std::size_t size() const { return size_; }
    void write(const byte_sink& sink) const;

private:
    byte_writer globals_;
    std::vector<sheet_stream> sheets_;
    std::size_t size_ = 0;
};

/// Forgets the texts of cells that were replaced.
void drop_unused_texts(workbook_content& content);

} // namespace xls
