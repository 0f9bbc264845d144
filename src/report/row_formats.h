// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"
#include "workbook/workbook.h"

namespace tallyframe {

/// The four formats that the cells of a row are written in. The default value is a row without any format.
struct row_format_set {
    xls::format_id text_format;
    xls::format_id center_format;
    xls::format_id integer_format; ///< "###,###,##0"
    xls::format_id decimal_format; ///< "#,##0.00"
};

/// The formats that all sheets share, taken into the report's workbook.
struct row_formats {
    xls::format_id header_format;
    row_format_set black; ///< its centred format shows percentages
    row_format_set red; ///< its centred format shows percentages
    row_format_set video;
    row_format_set audio;
    row_format_set marker;
};

/// Throws xls::workbook_error for a row colour that the workbook does not know.
row_formats add_row_formats(xls::workbook& book, const report_options& options);

} // namespace tallyframe
