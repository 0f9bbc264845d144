// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/failure_alert.h"

#include "platform/application.h"
#include "platform/failures.h"

#include <fmt/format.h>

namespace tallyframe {

namespace {

std::string location_trace_of(const std::exception& error)
{
    const auto* raised_here = dynamic_cast<const failure*>(&error);
    return raised_here ? raised_here->location_trace() : std::string();
}

failure_alert unexpected_failure(const std::exception& error, std::string_view error_tracker)
{
    const std::string trace = location_trace_of(error);
    const std::string first_line = trace.substr(0, trace.find('\n'));
    return {
        .message_text = fmt::format("There was a problem converting this XML{}", error_tracker),
        .informative_text =
            fmt::format("Please zip up the XML file and email it with the subject “{0} {1} error” "
                        "to {2} with this error message in the body text:\n\n\t{3}\n\n\t{4}\n\n"
                        "\tThanks for helping us improve {0}!",
                        application::executable_name, application::short_version,
                        application::support_address, error.what(), first_line),
        .system_log_text = fmt::format("{}\n{}", error.what(), trace),
    };
}

} // namespace

failure_alert alert_for(const std::exception& error, std::string_view error_tracker)
{
    const std::string_view message = error.what();
    if (message == fatal_error_message)
        return {"This XML file is incomplete or broken", "Please export the XML file again.", ""};
    if (message == not_xmeml_message)
        return {"This is not a Final Cut Pro XML file",
                "Please choose an XML file exported from\nPremiere Pro CC or Final Cut Pro.", ""};
    return unexpected_failure(error, error_tracker);
}

} // namespace tallyframe
