#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// How a command ended. The numbers are the exit codes of the command line.
enum class CommandResult { done = 0, refused = 1, misused = 2, nothingRunning = 3 };

/// The words of a command line behind the program's name. None: the program was started again.
using CommandRequest = std::vector<std::string>;

/// The words that a URL such as "corvane://profile/load/My%20profile" carries; nothing for a URL of
/// another scheme or with half an escape.
std::optional<CommandRequest> commandInUrl(std::string_view url);

/// The URL that carries those words; `commandInUrl` reads it. Empty words are left out.
std::string urlOfCommand(const CommandRequest &words);

/// What a command line prints and how it ends. In English.
struct CommandReply {
    CommandResult result = CommandResult::done;
    /// For standard output: nothing or whole lines.
    std::string output{};
    /// For standard error: why the command was not carried out; empty for one that was.
    std::string error{};

    bool operator==(const CommandReply &) const = default;
};

/// What a command line says that got no reply.
CommandReply noReply();
CommandReply nothingRunning();

/// Takes the reply to one request.
using SendReply = std::function<void(const CommandReply &)>;

} // namespace corvane
