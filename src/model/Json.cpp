#include "model/Json.h"

#include "model/JsonMembers.h"
#include "model/JsonParsing.h"
#include "model/JsonValues.h"
#include "model/JsonWriting.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace corvane {

namespace {

using Json = nlohmann::json;

// Writing

Json toJson(const CodableRect &rect) {
    return {{"x", rect.x}, {"y", rect.y}, {"width", rect.width}, {"height", rect.height}};
}

Json toJson(const WindowAnchor &anchor) {
    return {{"bundleID", anchor.bundleID},
            {"windowTitle", anchor.windowTitle},
            {"relativeRect", toJson(anchor.relativeRect)}};
}

Json toJson(const Profile &profile) {
    Json json = jsonValue(profile.config);
    json["id"] = profile.id.text();
    json["name"] = profile.name;
    return json;
}

Json toJson(const ProfileStore &store) {
    Json json = {{"profiles", Json::array()}};
    for (const Profile &profile : store.profiles) {
        json["profiles"].push_back(toJson(profile));
    }
    if (store.activeProfileID) {
        json["activeProfileID"] = store.activeProfileID->text();
    }
    return json;
}

// Reading

std::unexpected<Failure> failure(std::string description) {
    return std::unexpected(Failure{std::move(description)});
}

Outcome<std::string> readString(const Json &json) {
    if (!json.is_string()) {
        return failure("not a text");
    }
    return json.get<std::string>();
}

Outcome<double> readNumber(const Json &json) {
    if (!json.is_number()) {
        return failure("not a number");
    }
    return json.get<double>();
}

/// The smallest integer of 64 bits is left out: as a double it also stands for smaller ones.
bool isWithin64Bits(double value) { return value > -0x1p63 && value < 0x1p63; }

/// Also a number written with a fraction or an exponent, when it is whole: 10.0.
Outcome<std::int64_t> readInteger(const Json &json) {
    constexpr auto greatest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (json.is_number_unsigned() && json.get<std::uint64_t>() > greatest) {
        return failure("beyond 64 bits");
    }
    if (json.is_number_integer()) {
        return json.get<std::int64_t>();
    }
    const Outcome<double> number = readNumber(json);
    if (!number || !isWithin64Bits(*number) || std::trunc(*number) != *number) {
        return failure("not a whole number of 64 bits");
    }
    return static_cast<std::int64_t>(*number);
}

/// Reads a text that stands for a value, by a function that gives nothing for any other text.
template <typename Value>
auto readTextFor(std::optional<Value> (*fromText)(std::string_view)) {
    return [fromText](const Json &json) -> Outcome<Value> {
        const Outcome<std::string> text = readString(json);
        const std::optional<Value> value = text ? fromText(*text) : std::nullopt;
        if (!value) {
            return failure("not a known value");
        }
        return *value;
    };
}

Outcome<CodableRect> readRect(const Json &json) {
    JsonMembers members(json);
    CodableRect rect;
    members.required("x", readNumber, rect.x);
    members.required("y", readNumber, rect.y);
    members.required("width", readNumber, rect.width);
    members.required("height", readNumber, rect.height);
    return members.outcome(rect);
}

Outcome<WindowAnchor> readAnchor(const Json &json) {
    JsonMembers members(json);
    WindowAnchor anchor;
    members.required("bundleID", readString, anchor.bundleID);
    members.required("windowTitle", readString, anchor.windowTitle);
    members.required("relativeRect", readRect, anchor.relativeRect);
    return members.outcome(std::move(anchor));
}

CorvaneConfig readSettings(JsonMembers &members) {
    CorvaneConfig config;
    members.required("clickMode", readTextFor(clickModeFromStoredValue), config.clickMode);
    members.optional("zoneRect", readRect, config.zoneRect);
    members.optional("windowAnchor", readAnchor, config.windowAnchor);
    members.required("clickRate", readInteger, config.clickRate);
    members.required("timeUnit", readTextFor(timeUnitFromStoredValue), config.timeUnit);
    members.required("maxClicks", readInteger, config.maxClicks);
    return config;
}

Outcome<Profile> readProfile(const Json &json) {
    JsonMembers members(json);
    Profile profile;
    members.required("id", readTextFor(Uuid::fromText), profile.id);
    members.required("name", readString, profile.name);
    profile.config = readSettings(members);
    return members.outcome(std::move(profile));
}

Outcome<std::vector<Profile>> readProfiles(const Json &json) {
    if (!json.is_array()) {
        return failure("not a list");
    }
    std::vector<Profile> profiles;
    for (const Json &element : json) {
        Outcome<Profile> profile = readProfile(element);
        if (!profile) {
            return failure("number " + std::to_string(profiles.size() + 1) + ": " +
                           profile.error().description);
        }
        profiles.push_back(*std::move(profile));
    }
    return profiles;
}

} // namespace

nlohmann::json jsonValue(const CorvaneConfig &config) {
    Json json = {{"clickMode", storedValue(config.clickMode)},
                 {"clickRate", config.clickRate},
                 {"timeUnit", storedValue(config.timeUnit)},
                 {"maxClicks", config.maxClicks}};
    if (config.zoneRect) {
        json["zoneRect"] = toJson(*config.zoneRect);
    }
    if (config.windowAnchor) {
        json["windowAnchor"] = toJson(*config.windowAnchor);
    }
    return json;
}

Outcome<std::string> encodeConfig(const CorvaneConfig &config) {
    return jsonText(jsonValue(config));
}

Outcome<std::string> encodeProfileStore(const ProfileStore &store) {
    return jsonText(toJson(store));
}

Outcome<CorvaneConfig> decodeConfig(std::string_view text) {
    const Outcome<Json> json = parseJson(text);
    if (!json) {
        return std::unexpected(json.error());
    }
    if (!json->is_object()) {
        return failure("not an object");
    }
    JsonMembers members(*json);
    return readSettings(members);
}

Outcome<ProfileStore> decodeProfileStore(std::string_view text) {
    const Outcome<Json> json = parseJson(text);
    if (!json) {
        return std::unexpected(json.error());
    }
    JsonMembers members(*json);
    ProfileStore store;
    members.required("profiles", readProfiles, store.profiles);
    members.optional("activeProfileID", readTextFor(Uuid::fromText), store.activeProfileID);
    return members.outcome(std::move(store));
}

} // namespace corvane
