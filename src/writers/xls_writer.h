// SPDX-License-Identifier: MIT
#pragma once

#include "writers/writer.h"

namespace tallyframe {

/// Excel 97-2003 workbooks. A sheet holds 65,536 rows, a text 32,767 characters.
extern const file_format xls_workbooks;

} // namespace tallyframe
