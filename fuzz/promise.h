// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

namespace tallyframe::fuzz {

/// Ends the process, which the fuzzer takes for a finding, unless what the code promises holds.
inline void promise(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "BROKEN PROMISE: %s\n", what);
    std::abort();
}

} // namespace tallyframe::fuzz
