// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tallyframe {

/// Takes from this process whatever reading an open file does not need, before it reads the first byte of
/// one: it can open no file and no connection, start no program, and send no signal; it writes to nobody but
/// the socket that is its standard input; it takes at most `most_memory` bytes, leaves no core file, and ends
/// with the process that has started it.
///
/// Where the system has no seccomp the limits hold alone.
void confine_this_process(std::uint64_t most_memory);

} // namespace tallyframe
