// SPDX-License-Identifier: MIT
#include "report/column_widths.h"

#include "text/utf8.h"

#include <algorithm>

namespace tallyframe {

void widen(column_widths& widths, std::size_t column, std::string_view text)
{
    if (column >= widths.size()
        || text.size() <= widths[column]) // a text never has more characters than bytes
        return;
    widths[column] = std::max(widths[column], text_length(text));
}

void add_one_to_each(column_widths& widths)
{
    for (std::size_t& width : widths)
        ++width;
}

double finished_width(std::size_t width)
{
    if (width > 200)
        return 170;
    if (width > 50)
        return static_cast<double>(width) * 0.85;
    return static_cast<double>(width);
}

} // namespace tallyframe
