// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/failure_alert.h"

#include "platform/application.h"
#include "run/failures.h"

#include <fmt/format.h>

namespace tallyframe {

namespace {

std::string location_trace_of(const std::exception& error)
{
    const auto* raised_here = dynamic_cast<const failure*>(&error);
    return raised_here ? raised_here->location_trace() : std::string();
}

failure_alert unexpected_failure(const std::exception& error)
{
    const std::string trace = location_trace_of(error);
    const std::string first_line = trace.substr(0, trace.find('\n'));
    return {
        .message_text = "There was a problem converting this XML",
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

failure_alert alert_for(const std::exception& error)
{
    const auto* load = dynamic_cast<const load_error*>(&error);
    switch (load ? load->fault() : load_fault::unexpected) {
    case load_fault::fatal_error:
        return {"This XML file is incomplete or broken", "Please export the XML file again.", ""};
    case load_fault::not_xmeml:
        return {"This is not a Final Cut Pro XML file",
                "Please choose an XML file exported from\nPremiere Pro CC or Final Cut Pro.", ""};
    case load_fault::refused:
        return {"This XML file cannot be opened", error.what(), ""};
    case load_fault::unexpected:
        break;
    }
    return unexpected_failure(error);
}

} // namespace tallyframe
