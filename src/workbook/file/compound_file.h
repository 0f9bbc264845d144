// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace xls {

/// What an OLE2 compound file of ours holds.
struct compound_content {
    std::string title; ///< document properties, valid UTF-8, at most 255 characters; an empty one is left out
    std::string application;
    std::size_t workbook_size = 0; ///< bytes of the stream "Workbook", at least 1 and below 2 GB
    std::function<void(const byte_sink&)> write_workbook; ///< hands on these bytes
};

/// Writes a compound file to an empty file, flushes it, and sees that all of it arrived. Throws
/// std::system_error where the disk fails, workbook_error when the stream has another size than it should.
void write_compound_file(std::FILE* file, const compound_content& content);

std::vector<std::uint8_t> compound_file_bytes(const compound_content& content);

} // namespace xls
