#pragma once

#include <span>
#include <string>

namespace corvane::x11 {

/// What the command line asks for.
struct CommandLine {
    enum class Request { run, answer, refuse };

    Request request = Request::run;
    /// What to write: to standard output for an answer, to standard error for a refusal.
    std::string text{};

    /// `arguments` without the program's name.
    static CommandLine parse(std::span<const char *const> arguments);
};

} // namespace corvane::x11
