#include "app/CommandLine.h"

#include "app/Command.h"

#include <cstdio>

namespace corvane {

namespace {

constexpr const char *synopsis =
    "Usage: corvane [option]\n"
    "       corvane [--launch] command\n"
    "\n"
    "Clicks the left mouse button again and again, at the cursor or inside a zone of the screen.\n";

constexpr const char *details =
    "\n"
    "Options:\n"
    "  -h, --help     show this text and exit\n"
    "  -v, --version  show the version and exit\n"
    "  --at-login     start as at login: give a panel half a minute to appear\n"
    "\n"
    "Commands to the Corvane that is running:\n"
    "  start                  start clicking\n"
    "  stop                   stop clicking\n"
    "  toggle [--key]         do the one or the other, as the hot key does; with --key only\n"
    "                         once while a key that runs it is held\n"
    "  status [--json]        say what it is doing\n"
    "  select-zone            let the user draw a zone on the screen\n"
    "  profile list [--json]  list the saved profiles\n"
    "  profile load NAME      load the profile of that name or id\n"
    "  settings               open the settings\n"
    "  quit                   end it\n"
    "With --launch, Corvane is started first where none is running.\n"
    "\n"
    "Without a running Corvane, and beside one:\n"
    "  doctor                 say what works on this desktop, and what to do about the rest\n"
    "\n"
    "Exit codes: 0 done, 1 refused, 2 not understood, 3 no Corvane is running.\n";

std::string usage(const std::string &hotKeyName) {
    return synopsis + hotKeyName + " or Corvane's menu starts and stops it.\n" + details;
}

CommandLine replying(CommandReply reply) {
    return {.request = CommandLine::Request::reply, .reply = std::move(reply)};
}

CommandLine misused(const std::string &why) {
    return replying({.result = CommandResult::misused, .error = why + "; try --help"});
}

CommandLine parseWithoutMore(const CommandRequest &words, const CommandLine &meant) {
    return words.size() == 1 ? meant : misused("'" + words[1] + "' is one word too many");
}

CommandLine parseCommand(const CommandRequest &words, CommandLine::Request request) {
    const auto command = Command::parse(words);
    return command ? CommandLine{.request = request, .words = words}
                   : misused(command.error().description);
}

} // namespace

CommandLine CommandLine::parse(const CommandRequest &words, const Program &program) {
    if (words.empty()) {
        return {};
    }
    const std::string &first = words.front();
    if (first == "-h" || first == "--help") {
        return replying({.output = usage(program.hotKeyName)});
    }
    if (first == "-v" || first == "--version") {
        return replying({.output = "Corvane " + program.version + "\n"});
    }
    if (first == "--launch") {
        return parseCommand(CommandRequest(words.begin() + 1, words.end()), Request::launch);
    }
    if (first == "--at-login") {
        return parseWithoutMore(words, {.cause = LaunchCause::login});
    }
    if (first.starts_with('-')) {
        return misused("unknown option '" + first + "'");
    }
    if (first == "doctor") {
        return parseWithoutMore(words, {.request = Request::diagnose});
    }
    return parseCommand(words, Request::command);
}

int print(const CommandReply &reply) {
    std::fputs(reply.output.c_str(), stdout);
    if (!reply.error.empty()) {
        std::fputs(("corvane: " + reply.error + "\n").c_str(), stderr);
    }
    return static_cast<int>(reply.result);
}

} // namespace corvane
