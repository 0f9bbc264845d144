// SPDX-License-Identifier: MIT
#include "platform/failures.h"

#include <filesystem>

namespace tallyframe {

std::string failure::location_trace() const
{
    return std::filesystem::path(where_.file).filename().string() + ":" + std::to_string(where_.line) + " in "
        + where_.function;
}

} // namespace tallyframe
