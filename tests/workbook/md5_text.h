// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/md5.h"

#include <string>

/// The MD5 digest of bytes as it is usually written.
inline std::string md5_text(xls::byte_view bytes)
{
    constexpr const char* digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : xls::md5(bytes)) {
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}
