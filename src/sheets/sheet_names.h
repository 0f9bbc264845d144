// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tallyframe {

/// The names of a workbook's sheets so far. Names that differ in letter case alone are the same to Excel.
class sheet_names {
public:
    void add(std::string_view name);
    bool contains(std::string_view name) const;

private:
    std::unordered_set<std::string> keys_;
};

/// The name that follows `name`: its rightmost letter or digit is advanced by one, with a carry to the next
/// one on its left ("#2 A009" gives "#2 A010", "#2 AZ" gives "#2 BA", "#9 Z" gives "#10 A"). ASCII letters
/// and digits count, and there has to be one.
std::string successor(std::string name);

/// A name for the sheet of a reel: "#", its number from 1, a blank and the reel's name, made legal for Excel
/// (31 UTF-16 units, none of its forbidden characters) and advanced until no sheet bears it.
std::string reel_sheet_name(std::size_t number, std::string_view reel, const sheet_names& used);

} // namespace tallyframe
