// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

#include <string>

namespace xls {

/// The stream that holds a document's properties, which file managers and Excel show. Texts are UTF-8; an
/// empty one is left out.
byte_writer summary_information(const std::string& title, const std::string& application);

} // namespace xls
