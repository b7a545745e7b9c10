#pragma once

#include "presentation/CommandRequest.h"
#include "support/Failure.h"

#include <string>
#include <string_view>

namespace corvane {

/// A command to the running program, as scripts and key bindings send it.
struct Command {
    enum class Kind {
        start,
        stop,
        toggle,
        status,
        selectZone,
        settings,
        quit,
        listProfiles,
        loadProfile
    };

    Kind kind = Kind::status;
    /// The answer is wanted as JSON.
    bool asJson = false;
    /// Sent by a key of the desktop, which sends it again and again while it is held.
    bool isByKey = false;
    /// The name or the id of the profile to load.
    std::string profile{};

    bool operator==(const Command &) const = default;

    /// Fails on anything that is no command, with the reason for standard error.
    static Outcome<Command> parse(const CommandRequest &words);
};

} // namespace corvane
