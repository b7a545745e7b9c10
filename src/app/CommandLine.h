#pragma once

#include "app/LaunchCause.h"
#include "presentation/CommandRequest.h"

#include <string>

namespace corvane {

/// What the command line requests.
struct CommandLine {
    enum class Request {
        /// Start the program.
        run,
        /// Print the reply and end.
        reply,
        /// Hand the words to the running program.
        command,
        /// The same; where none is running, start the program with them.
        launch,
        /// Say what works on this desktop.
        diagnose
    };

    Request request = Request::run;
    LaunchCause cause = LaunchCause::user;
    CommandReply reply{};
    CommandRequest words{};

    /// The program's own properties.
    struct Program {
        /// Such as "1.0.0 (1)".
        std::string version;
        /// The hot key as this system writes it, such as "Super+Shift+Y".
        std::string hotKeyName;
    };

    /// `words` without the program's name.
    static CommandLine parse(const CommandRequest &words, const Program &program);
};

/// Prints the reply: what it says to standard output, why it was refused to standard error. The
/// exit code.
int print(const CommandReply &reply);

} // namespace corvane
