// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// Names of files in forms that can be compared. Names that are no UTF-8 stay as they are.

namespace tallyframe {

/// One spelling of accented letters: a disk of a Mac takes "é" apart into two characters, others do not.
std::string one_spelling(std::string_view name);

/// A form that names share which differ in that spelling or in letter case.
std::string caseless_spelling(std::string_view name);

/// A path as the other systems write it: "C:\Media" and "C:/Media" give "/C:/Media", as documents name it,
/// "\\server\media" gives "//server/media". Other paths stay as they are.
std::string with_slashes(std::string_view path);

} // namespace tallyframe
