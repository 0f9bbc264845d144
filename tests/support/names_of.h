// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tallyframe::testing_support {

/// The names of records; "(none)" for one without.
template <class Record>
std::vector<std::string> names_of(const std::vector<Record>& records)
{
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const Record& record : records)
        names.push_back(std::optional<std::string>(record.name).value_or("(none)"));
    return names;
}

} // namespace tallyframe::testing_support
