// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/sheet.h"

#include <string>

namespace tallyframe {

/// The table of a sheet as comma-separated values (RFC 4180): the titles of its columns, then its records;
/// no lists above it, no total. A text that a spreadsheet program would take for a formula gets an apostrophe
/// in front.
std::string csv_text(const sheet& of);

} // namespace tallyframe
