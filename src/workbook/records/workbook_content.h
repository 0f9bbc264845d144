// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/format_table.h"
#include "workbook/records/pictures.h"
#include "workbook/records/shared_strings.h"
#include "workbook/records/sheet_content.h"
#include "workbook/workbook.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace xls {

/// All that a workbook has taken in. Its sheets share the formats, texts and pictures.
struct workbook_content {
    document_properties properties;
    std::function<void(std::string_view)> log;
    std::vector<cut_text> cut_texts;
    format_table formats;
    shared_strings strings;
    picture_store pictures;
    std::vector<std::unique_ptr<sheet_content>> sheets;
    std::vector<std::unique_ptr<worksheet>> worksheets; ///< what the caller writes the sheets through
    std::set<std::string> sheet_name_keys;
};

} // namespace xls
