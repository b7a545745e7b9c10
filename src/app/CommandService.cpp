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

CommandReply done(const std::string &sentence) { return {.output = sentence + "\n"}; }

CommandReply refused(std::string reason) {
    return {.result = CommandResult::refused, .error = std::move(reason)};
}

/// Passes on the first reply only.
SendReply onlyOnce(const SendReply &sendReply) {
    return [open = std::make_shared<bool>(true), sendReply](const CommandReply &reply) {
        if (std::exchange(*open, false)) {
            sendReply(reply);
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

void CommandService::handle(const CommandRequest &request, const SendReply &sendReply) {
    if (request.empty()) {
        delegate_.applicationShouldHandleReopen();
        sendReply({});
        return;
    }
    const auto command = Command::parse(request);
    if (!command) {
        sendReply({.result = CommandResult::misused, .error = command.error().description});
        return;
    }
    perform(*command, sendReply);
}

void CommandService::perform(const Command &command, const SendReply &sendReply) {
    switch (command.kind) {
    case Command::Kind::start:
        return start(sendReply);
    case Command::Kind::stop:
        return stop(sendReply);
    case Command::Kind::toggle:
        return toggle(command, sendReply);
    case Command::Kind::status:
        return sendReply(statusReport(appState_, delegate_.isHotkeyRegistered(), command.asJson));
    case Command::Kind::selectZone:
        return selectZone(sendReply);
    case Command::Kind::settings:
        return sendReply(showSettings());
    case Command::Kind::quit:
        return quit(sendReply);
    case Command::Kind::listProfiles:
        return sendReply(profilesReport(appState_, command.asJson));
    case Command::Kind::loadProfile:
        return sendReply(loadProfile(command.profile));
    }
}

void CommandService::toggle(const Command &command, const SendReply &sendReply) {
    if (command.isByKey && isRepeatedKey()) {
        return sendReply(done("The key is held."));
    }
    appState_.status == ClickStatus::running ? stop(sendReply) : start(sendReply);
}

bool CommandService::isRepeatedKey() {
    // Longer than keys are held before they repeat.
    constexpr std::chrono::milliseconds pause{700};
    const auto now = clock_.now();
    const auto last = std::exchange(lastKey_, now);
    return last && now - *last < pause;
}

void CommandService::start(const SendReply &sendReply) {
    if (appState_.status == ClickStatus::running) {
        return sendReply(done("Corvane is clicking already."));
    }
    // A start without the permission opens the settings for it, which a script cannot use.
    if (const auto refusal = refusalOf(ActionID::startClicking);
        refusal && !appState_.isAccessibilityGranted) {
        return sendReply(*refusal);
    }
    const SendReply sendOnce = onlyOnce(sendReply);
    // Comes first only where the start asks the user, which keeps the main queue turning.
    mainQueue_.post([sendOnce] {
        sendOnce(
            refused("the anchored window is not there; Corvane asks on the screen what to do"));
    });
    delegate_.startClicking();
    sendOnce(outcomeOfStart());
}

CommandReply CommandService::outcomeOfStart() const {
    if (appState_.status == ClickStatus::running) {
        return done("Clicking started.");
    }
    if (const auto refusal = refusalOf(ActionID::startClicking)) {
        return *refusal;
    }
    return refused(appState_.isAlertOpen ? reasonFor(Obstacle::alertOpen)
                                         : "the start was cancelled");
}

void CommandService::stop(const SendReply &sendReply) {
    if (appState_.status != ClickStatus::running) {
        return sendReply(done("Corvane is not clicking."));
    }
    delegate_.stopClicking();
    replyLater(sendReply, &CommandService::outcomeOfStop);
}

CommandReply CommandService::outcomeOfStop() const {
    return done("Clicking stopped after " + std::to_string(appState_.clickCount) + " clicks.");
}

void CommandService::selectZone(const SendReply &sendReply) {
    if (appState_.status == ClickStatus::pickingZone) {
        return sendReply(outcomeOfSelection());
    }
    if (const auto refusal = refusalOf(ActionID::selectZone)) {
        return sendReply(*refusal);
    }
    delegate_.selectZone();
    replyLater(sendReply, &CommandService::outcomeOfSelection);
}

CommandReply CommandService::outcomeOfSelection() const {
    return done("Draw the zone on the screen; Escape leaves everything as it is.");
}

CommandReply CommandService::showSettings() {
    if (const auto refusal = refusalOf(ActionID::showConfig)) {
        return *refusal;
    }
    delegate_.showConfig();
    return done("The settings are open.");
}

void CommandService::quit(const SendReply &sendReply) {
    awaitingEnd_.push_back(sendReply);
    delegate_.perform({ActionID::terminate});
}

void CommandService::replyToQuit() {
    for (const SendReply &sendReply : std::exchange(awaitingEnd_, {})) {
        sendReply(done("Corvane ends."));
    }
}

CommandReply CommandService::loadProfile(const std::string &nameOrId) {
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

void CommandService::replyLater(const SendReply &sendReply,
                                CommandReply (CommandService::*reply)() const) {
    mainQueue_.post(
        weakly_([sendReply, reply](const CommandService &self) { sendReply((self.*reply)()); }));
}

std::optional<CommandReply> CommandService::refusalOf(ActionID action) const {
    const auto obstacle = obstacleTo(action, appState_);
    return obstacle ? std::optional(refused(reasonFor(*obstacle))) : std::nullopt;
}

} // namespace corvane
