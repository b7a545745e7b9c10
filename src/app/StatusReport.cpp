#include "app/StatusReport.h"

#include "model/JsonValues.h"
#include "model/JsonWriting.h"
#include "state/AppState.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace corvane {

namespace {

using Json = nlohmann::json;

/// Grows when a member changes its meaning or goes, not when one is added.
constexpr int formatVersion = 1;

const char *storedValue(ClickStatus status) {
    switch (status) {
    case ClickStatus::idle:
        return "idle";
    case ClickStatus::pickingZone:
        return "pickingZone";
    case ClickStatus::running:
        break;
    }
    return "running";
}

CommandReply answerWith(const Json &json) {
    const auto text = jsonText(json);
    return text ? CommandReply{.output = *text + "\n"}
                : CommandReply{.result = CommandResult::refused, .error = text.error().description};
}

const Profile *activeProfile(const AppState &state) {
    const auto found = std::ranges::find_if(state.profiles, [&state](const Profile &profile) {
        return profile.id == state.activeProfileID;
    });
    return found == state.profiles.end() ? nullptr : &*found;
}

Json identity(const Profile &profile) {
    return {{"id", profile.id.text()}, {"name", profile.name}};
}

/// A name may hold anything; a line of a listing may not.
std::string oneLine(std::string text) {
    std::ranges::replace_if(text, [](unsigned char byte) { return std::iscntrl(byte) != 0; }, ' ');
    return text;
}

Json statusJson(const AppState &state, bool isHotkeyRegistered) {
    Json json = {{"clickCount", state.clickCount},
                 {"config", jsonValue(state.config)},
                 {"format", formatVersion},
                 {"isAccessibilityGranted", state.isAccessibilityGranted},
                 {"isHotkeyRegistered", isHotkeyRegistered},
                 {"status", storedValue(state.status)}};
    if (const Profile *active = activeProfile(state)) {
        json["activeProfile"] = identity(*active);
    }
    return json;
}

std::string statusSentence(const AppState &state) {
    switch (state.status) {
    case ClickStatus::idle:
        return "Idle";
    case ClickStatus::pickingZone:
        return "A zone is being drawn";
    case ClickStatus::running:
        break;
    }
    return "Clicking, " + std::to_string(state.clickCount) + " so far";
}

std::string place(const CorvaneConfig &config) {
    if (config.clickMode == ClickMode::cursor) {
        return "at the cursor";
    }
    return config.zoneRect ? "inside a zone of " + config.zoneRect->sizeLabel()
                           : std::string("inside a zone that is not drawn yet");
}

std::string statusText(const AppState &state) {
    const CorvaneConfig &config = state.config;
    std::string text = statusSentence(state) + "\n";
    text += "Set to click " + place(config) + ", " + std::to_string(config.clickRate) + "/" +
            std::string(storedValue(config.timeUnit)) + ", " +
            (config.maxClicks == 0 ? "without end"
                                   : "up to " + std::to_string(config.maxClicks) + " times") +
            "\n";
    if (const Profile *active = activeProfile(state)) {
        text += "Profile: " + oneLine(active->name) + "\n";
    }
    if (!state.isAccessibilityGranted) {
        text += "Clicks do not reach other applications; 'corvane doctor' says why\n";
    }
    return text;
}

} // namespace

CommandReply statusReport(const AppState &appState, bool isHotkeyRegistered, bool asJson) {
    return asJson ? answerWith(statusJson(appState, isHotkeyRegistered))
                  : CommandReply{.output = statusText(appState)};
}

CommandReply profilesReport(const AppState &appState, bool asJson) {
    if (!asJson) {
        std::string names;
        for (const Profile &profile : appState.profiles) {
            names += oneLine(profile.name) + "\n";
        }
        return {.output = names};
    }
    Json json = {{"format", formatVersion}, {"profiles", Json::array()}};
    for (const Profile &profile : appState.profiles) {
        json["profiles"].push_back(identity(profile));
    }
    if (appState.activeProfileID) {
        json["activeProfileID"] = appState.activeProfileID->text();
    }
    return answerWith(json);
}

} // namespace corvane
