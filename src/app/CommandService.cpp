#include "app/CommandService.h"

#include "app/AppDelegate.h"
#include "app/StatusReport.h"
#include "platform/ContinuousClock.h"
#include "platform/MainQueue.h"
#include "state/AppState.h"
#include "state/Availability.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

CommandAnswer done(const std::string &sentence) { return {.output = sentence + "\n"}; }

CommandAnswer refused(std::string reason) {
    return {.result = CommandResult::refused, .error = std::move(reason)};
}

/// Passes on the first answer only.
CommandReply onlyOnce(const CommandReply &reply) {
    return [open = std::make_shared<bool>(true), reply](const CommandAnswer &answer) {
        if (std::exchange(*open, false)) {
            reply(answer);
        }
    };
}

} // namespace

CommandService::CommandService(AppDelegate &delegate, const AppState &appState,
                               platform::MainQueue &mainQueue,
                               const platform::ContinuousClock &clock)
    : delegate_(delegate),
      appState_(appState),
      mainQueue_(mainQueue),
      clock_(clock) {}

void CommandService::handle(const CommandRequest &request, const CommandReply &reply) {
    if (request.empty()) {
        delegate_.applicationShouldHandleReopen();
        reply({});
        return;
    }
    const auto command = Command::parse(request);
    if (!command) {
        reply({.result = CommandResult::misused, .error = command.error().description});
        return;
    }
    perform(*command, reply);
}

void CommandService::perform(const Command &command, const CommandReply &reply) {
    switch (command.kind) {
    case Command::Kind::start:
        return start(reply);
    case Command::Kind::stop:
        return stop(reply);
    case Command::Kind::toggle:
        return toggle(command, reply);
    case Command::Kind::status:
        return reply(statusReport(appState_, delegate_.isHotkeyRegistered(), command.asJson));
    case Command::Kind::selectZone:
        return selectZone(reply);
    case Command::Kind::settings:
        return reply(showSettings());
    case Command::Kind::quit:
        return quit(reply);
    case Command::Kind::listProfiles:
        return reply(profilesReport(appState_, command.asJson));
    case Command::Kind::loadProfile:
        return reply(loadProfile(command.profile));
    }
}

void CommandService::toggle(const Command &command, const CommandReply &reply) {
    if (command.isByKey && isRepeatedKey()) {
        return reply(done("The key is held."));
    }
    appState_.status == ClickStatus::running ? stop(reply) : start(reply);
}

bool CommandService::isRepeatedKey() {
    // Longer than keys are held before they repeat.
    constexpr std::chrono::milliseconds pause{700};
    const auto now = clock_.now();
    const auto last = std::exchange(lastKey_, now);
    return last && now - *last < pause;
}

void CommandService::start(const CommandReply &reply) {
    if (appState_.status == ClickStatus::running) {
        return reply(done("Corvane is clicking already."));
    }
    // A start without the permission opens the settings for it, which a script cannot use.
    if (const auto refusal = refusalOf(ActionID::startClicking);
        refusal && !appState_.isAccessibilityGranted) {
        return reply(*refusal);
    }
    const CommandReply answer = onlyOnce(reply);
    // Comes first only where the start asks the user, which keeps the main queue turning.
    mainQueue_.post([answer] {
        answer(refused("the anchored window is not there; Corvane asks on the screen what to do"));
    });
    delegate_.startClicking();
    answer(outcomeOfStart());
}

CommandAnswer CommandService::outcomeOfStart() const {
    if (appState_.status == ClickStatus::running) {
        return done("Clicking started.");
    }
    if (const auto refusal = refusalOf(ActionID::startClicking)) {
        return *refusal;
    }
    return refused(appState_.isAlertOpen ? reasonFor(Obstacle::alertOpen)
                                         : "the start was cancelled");
}

void CommandService::stop(const CommandReply &reply) {
    if (appState_.status != ClickStatus::running) {
        return reply(done("Corvane is not clicking."));
    }
    delegate_.stopClicking();
    replyLater(reply, &CommandService::outcomeOfStop);
}

CommandAnswer CommandService::outcomeOfStop() const {
    return done("Clicking stopped after " + std::to_string(appState_.clickCount) + " clicks.");
}

void CommandService::selectZone(const CommandReply &reply) {
    if (appState_.status == ClickStatus::pickingZone) {
        return reply(outcomeOfSelection());
    }
    if (const auto refusal = refusalOf(ActionID::selectZone)) {
        return reply(*refusal);
    }
    delegate_.selectZone();
    replyLater(reply, &CommandService::outcomeOfSelection);
}

CommandAnswer CommandService::outcomeOfSelection() const {
    return done("Draw the zone on the screen; Escape leaves everything as it is.");
}

CommandAnswer CommandService::showSettings() {
    if (const auto refusal = refusalOf(ActionID::showConfig)) {
        return *refusal;
    }
    delegate_.showConfig();
    return done("The settings are open.");
}

void CommandService::quit(const CommandReply &reply) {
    awaitingEnd_.push_back(reply);
    delegate_.perform({ActionID::terminate});
}

void CommandService::sayGoodbye() {
    for (const CommandReply &reply : std::exchange(awaitingEnd_, {})) {
        reply(done("Corvane ends."));
    }
}

CommandAnswer CommandService::loadProfile(const std::string &nameOrId) {
    std::vector<const Profile *> meant;
    for (const Profile &profile : appState_.profiles) {
        if (profile.name == nameOrId || profile.id.text() == nameOrId) {
            meant.push_back(&profile);
        }
    }
    if (meant.empty()) {
        return refused("there is no profile '" + nameOrId + "'");
    }
    if (meant.size() > 1) {
        return refused("several profiles are called '" + nameOrId +
                       "'; 'corvane profile list --json' tells their ids, which load them too");
    }
    if (const auto refusal = refusalOf(ActionID::loadProfile)) {
        return *refusal;
    }
    delegate_.loadProfile(meant.front()->id.text());
    return done("Profile '" + nameOrId + "' is loaded.");
}

void CommandService::replyLater(const CommandReply &reply,
                                CommandAnswer (CommandService::*answer)() const) {
    mainQueue_.post(
        weakly_([reply, answer](const CommandService &self) { reply((self.*answer)()); }));
}

std::optional<CommandAnswer> CommandService::refusalOf(ActionID action) const {
    const auto obstacle = obstacleTo(action, appState_);
    return obstacle ? std::optional(refused(reasonFor(*obstacle))) : std::nullopt;
}

} // namespace corvane
