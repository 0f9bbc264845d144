// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace tallyframe {

/// A place in the program; as a default argument, `current()` is the place of the call. (The standard library
/// offers the like of it to newer compilers only than those that this program builds with.)
struct source_place {
    const char* file = "";
    int line = 0;
    const char* function = "";

    static constexpr source_place current(const char* file = __builtin_FILE(), int line = __builtin_LINE(),
                                          const char* function = __builtin_FUNCTION())
    {
        return {file, line, function};
    }
};

/// A failure whose message is meant for the user, with the place in the program where it was raised.
class failure : public std::runtime_error {
public:
    explicit failure(const std::string& message, source_place where = source_place::current())
        : std::runtime_error(message), where_(where)
    {
    }

    /// The location trace, one place a line: "parse_xml.cpp:42 in parse_xml".
    std::string location_trace() const;

private:
    source_place where_;
};

/// The document cannot be loaded. The two that every host tells apart are these messages exactly.
class load_error : public failure {
public:
    using failure::failure;
};
inline constexpr const char* fatal_error_message = "fatal error";
inline constexpr const char* not_xmeml_message = "not xmeml";

/// The document lacks something that the analysis cannot do without.
class analysis_error : public failure {
public:
    using failure::failure;
};

/// The user has stopped the run.
class run_cancelled : public failure {
public:
    explicit run_cancelled(source_place where = source_place::current())
        : failure("The run was stopped.", where)
    {
    }
};

} // namespace tallyframe
