// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>

namespace tallyframe {

/// What the user is told about a document that could not be loaded or analysed.
struct failure_alert {
    std::string message_text;
    std::string informative_text;
    std::string system_log_text; ///< empty for the failures that a user can mend alone
};

failure_alert alert_for(const std::exception& error);

} // namespace tallyframe
