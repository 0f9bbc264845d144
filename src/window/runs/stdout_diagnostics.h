// SPDX-License-Identifier: MIT
#pragma once

#include "run/diagnostics.h"

#include <cstdio>

namespace tallyframe::window {

/// Diagnostics on standard output, as the command line has them.
class stdout_diagnostics final : public diagnostics {
public:
    void write(std::string_view text) override { std::fwrite(text.data(), 1, text.size(), stdout); }
};

} // namespace tallyframe::window
