// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/byte_writer.h"
#include "workbook/sheet_stream.h"
#include "workbook/workbook_content.h"

#include <vector>

namespace xls {

/// The stream "Workbook" of the file: the records of the workbook as a whole, then its sheets.
class workbook_stream {
public:
    /// `content` must outlive this and stay as it is. Throws workbook_error when the stream gets larger than
    /// the file can be.
    explicit workbook_stream(const workbook_content& content);

    void write(const byte_sink& sink) const;

private:
    byte_writer globals_;
    std::vector<sheet_stream> sheets_;
};

/// Forgets the texts of cells that were replaced.
void drop_unused_texts(workbook_content& content);

} // namespace xls
