#pragma once

#include "presentation/Command.h"

#include <string>

namespace corvane {

/// What the command line asks for.
struct CommandLine {
    enum class Request {
        /// Start the program.
        run,
        /// Print the answer and end.
        answer,
        /// Hand the words to the running program.
        command,
        /// The same; where none is running, start the program with them.
        launch,
        /// Say what works on this desktop.
        diagnose
    };

    Request request = Request::run;
    CommandAnswer answer{};
    CommandRequest words{};

    /// `words` without the program's name; `version` as it is shown: "1.0.0 (1)".
    static CommandLine parse(const CommandRequest &words, const std::string &version);
};

/// Prints the answer: what it says to standard output, why it was refused to standard error. The
/// exit code.
int print(const CommandAnswer &answer);

} // namespace corvane
