// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

#include <cstddef>

/// The records of settings that all our workbooks have in common. Readers bear it when they are missing, but
/// Excel's check of files from the internet takes a workbook without them for damaged.
namespace xls::records {

/// Those before WINDOW1, CODEPAGE among them.
void settings_before_window(byte_writer& out, std::size_t sheets);

/// Those between WINDOW1 and the fonts.
void settings_behind_window(byte_writer& out);

/// How a sheet calculates and prints: those between INDEX and DEFAULTROWHEIGHT.
void calculation_settings(byte_writer& out);

/// Those between DEFAULTROWHEIGHT and the columns.
void page_settings(byte_writer& out);

} // namespace xls::records
