// SPDX-License-Identifier: MIT
#include "run/failures.h"

#include <filesystem>

namespace tallyframe {

std::string failure::location_trace() const
{
    return std::filesystem::path(where_.file).filename().string() + ":" + std::to_string(where_.line) + " in "
        + where_.function;
}

load_error::load_error(load_fault fault, source_place where)
    : load_error(fault == load_fault::fatal_error ? "fatal error" : "not xmeml", fault, where)
{
}

} // namespace tallyframe
