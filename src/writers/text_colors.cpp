// SPDX-License-Identifier: MIT
#include "writers/text_colors.h"

#include "workbook/format.h"

namespace tallyframe {

const std::vector<std::string_view>& color_names()
{
    return xls::color_names();
}

std::optional<std::uint32_t> color_value(std::string_view text)
{
    return xls::color_value(text);
}

} // namespace tallyframe
