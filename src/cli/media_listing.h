// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/media_check.h"

#include <span>
#include <string>

namespace tallyframe::cli {

/// What a check of media has found, for people: some lines a file, names made visible, and a last line with
/// the totals.
std::string media_as_text(std::span<const checked_media> files);

/// The same for scripts: an object with `files` and `totals`. What nobody knows is null.
std::string media_as_json(std::span<const checked_media> files);

/// The same as a table, a line a file, with the columns of the sheet "Media Check".
std::string media_as_csv(std::span<const checked_media> files);

} // namespace tallyframe::cli
