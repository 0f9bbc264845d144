// SPDX-License-Identifier: MIT
#pragma once

#include "run/diagnostics.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallyframe::testing_support {

/// Keeps what is written: as one text, and write by write.
class kept_diagnostics final : public diagnostics {
public:
    std::string text;
    std::vector<std::string> writes;

    void write(std::string_view more) override
    {
        text += more;
        writes.emplace_back(more);
    }
};

} // namespace tallyframe::testing_support
