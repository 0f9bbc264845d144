// SPDX-License-Identifier: MIT
#pragma once

#include "cli/run.h"
#include "run/account.h"

#include <ostream>
#include <string_view>

// What a run says on standard error about what went wrong. Each message begins with "tallyframe: ", and then
// with `subject`, what it is about, where a run does several things. Names in it are made visible.

namespace tallyframe::cli {

/// Says why the exception that is being handled was thrown; for use in a catch block. Gives the exit code.
exit_code tell_failure(std::ostream& err, std::string_view subject = {});

/// Says what was lost, a line for each kind of loss.
void tell_losses(const account& lost, std::ostream& err, std::string_view subject = {});

} // namespace tallyframe::cli
