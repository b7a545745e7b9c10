#include "app/Command.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

/// A command by its words.
struct Form {
    Command::Kind kind;
    std::string_view word;
    /// The second word; empty for commands of one.
    std::string_view subject{};
    bool hasJson = false;
    bool hasKey = false;
    bool hasProfile = false;
};

constexpr std::array forms{
    Form{.kind = Command::Kind::start, .word = "start"},
    Form{.kind = Command::Kind::stop, .word = "stop"},
    Form{.kind = Command::Kind::toggle, .word = "toggle", .hasKey = true},
    Form{.kind = Command::Kind::status, .word = "status", .hasJson = true},
    Form{.kind = Command::Kind::selectZone, .word = "select-zone"},
    Form{.kind = Command::Kind::settings, .word = "settings"},
    Form{.kind = Command::Kind::quit, .word = "quit"},
    Form{
        .kind = Command::Kind::listProfiles, .word = "profile", .subject = "list", .hasJson = true},
    Form{.kind = Command::Kind::loadProfile,
         .word = "profile",
         .subject = "load",
         .hasProfile = true},
};

std::size_t lengthOf(const Form &form) { return form.subject.empty() ? 1 : 2; }

bool begins(const CommandRequest &words, const Form &form) {
    return words.size() >= lengthOf(form) && words.front() == form.word &&
           (form.subject.empty() || words[1] == form.subject);
}

std::unexpected<Failure> misuse(std::string description) {
    return std::unexpected(Failure{std::move(description)});
}

/// Why no form fits.
std::unexpected<Failure> unknown(const CommandRequest &words) {
    if (words.empty()) {
        return misuse("no command is given");
    }
    if (words.front() != "profile") {
        return misuse("unknown command '" + words.front() + "'");
    }
    return misuse(words.size() < 2 ? "'profile' needs 'list' or 'load NAME'"
                                   : "unknown command 'profile " + words[1] + "'");
}

} // namespace

Outcome<Command> Command::parse(const CommandRequest &words) {
    const auto *const form =
        std::ranges::find_if(forms, [&words](const Form &each) { return begins(words, each); });
    if (form == forms.end()) {
        return unknown(words);
    }
    Command command{.kind = form->kind};
    std::size_t next = lengthOf(*form);
    if (form->hasProfile) {
        if (next == words.size()) {
            return misuse("the name of the profile is missing");
        }
        command.profile = words[next++];
    }
    if (form->hasJson && next < words.size() && words[next] == "--json") {
        command.asJson = true;
        ++next;
    }
    if (form->hasKey && next < words.size() && words[next] == "--key") {
        command.isByKey = true;
        ++next;
    }
    if (next < words.size()) {
        return misuse("'" + words[next] + "' is one word too many");
    }
    return command;
}

} // namespace corvane
