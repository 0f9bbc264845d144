// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/byte_writer.h"

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace xls {

/// What an OLE2 compound file of ours holds.
struct compound_content {
    std::string title; ///< document properties, UTF-8; an empty one is left out
    std::string application;
    std::function<void(const byte_sink&)> write_workbook; ///< hands on the bytes of the stream "Workbook"
};

/// Writes a compound file at the start of an empty file and flushes it. Throws std::system_error.
void write_compound_file(std::FILE* file, const compound_content& content);

std::vector<std::uint8_t> compound_file_bytes(const compound_content& content);

} // namespace xls
