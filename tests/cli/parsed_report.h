// SPDX-License-Identifier: MIT
#pragma once

#include "cli/arguments.h"

#include <string>
#include <vector>

namespace tallyframe::cli {

/// What `tallyframe report cut.xml` with those flags asks for.
inline report_request parsed(std::vector<std::string> flags)
{
    flags.insert(flags.begin(), {"report", "cut.xml"});
    return parse_arguments(flags).report.value();
}

} // namespace tallyframe::cli
