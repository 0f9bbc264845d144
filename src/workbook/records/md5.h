// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

#include <array>
#include <cstdint>

namespace xls {

/// The MD5 digest of bytes (RFC 1321): a name for a picture, not a protection.
std::array<std::uint8_t, 16> md5(byte_view bytes);

} // namespace xls
