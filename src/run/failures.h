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

/// Why a document cannot be loaded.
enum class load_fault {
    fatal_error, ///< it is broken
    not_xmeml, ///< it is something else
    refused, ///< it cannot be read, or asks for too much: the message says what the user can do
    unexpected, ///< it is as no editing application writes it
};

/// The document cannot be loaded.
class load_error : public failure {
public:
    /// `fault`: fatal_error or not_xmeml, whose messages are "fatal error" and "not xmeml".
    explicit load_error(load_fault fault, source_place where = source_place::current());

    /// `message`: a sentence for the user.
    explicit load_error(const std::string& message, load_fault fault = load_fault::refused,
                        source_place where = source_place::current())
        : failure(message, where), fault_(fault)
    {
    }

    load_fault fault() const { return fault_; }

private:
    load_fault fault_;
};

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
