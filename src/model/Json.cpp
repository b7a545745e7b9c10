#include "model/Json.h"

#include "support/NumberText.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace corvane {

namespace {

using Json = nlohmann::json;

// Writing

class Writer {
  public:
    /// Members in the order of their keys.
    using Object = std::map<std::string, std::function<void(Writer &)>>;

    void object(const Object &members) {
        open('{');
        for (bool isFirst = true; const auto &[key, writeValue] : members) {
            nextLine(std::exchange(isFirst, false));
            string(key);
            text_ += " : ";
            writeValue(*this);
        }
        close('}', members.empty());
    }

    template <typename Element, typename WriteElement>
    void array(const std::vector<Element> &elements, WriteElement writeElement) {
        open('[');
        for (bool isFirst = true; const Element &element : elements) {
            nextLine(std::exchange(isFirst, false));
            writeElement(*this, element);
        }
        close(']', elements.empty());
    }

    void string(std::string_view value) {
        const Json quoted = value;
        text_ += quoted.dump(-1, ' ', false, Json::error_handler_t::replace);
    }
    void integer(std::int64_t value) { text_ += std::to_string(value); }
    void number(double value) { text_ += shortestNumberText(value); }

    std::string take() { return std::move(text_); }

  private:
    void open(char bracket) {
        text_ += bracket;
        ++level_;
    }
    void nextLine(bool isFirst) {
        text_ += isFirst ? "\n" : ",\n";
        text_.append(2 * level_, ' ');
    }
    void close(char bracket, bool isEmpty) {
        --level_;
        text_ += isEmpty ? "\n\n" : "\n";
        text_.append(2 * level_, ' ');
        text_ += bracket;
    }

    std::string text_;
    std::size_t level_ = 0;
};

void writeRect(Writer &writer, const CodableRect &rect) {
    writer.object({{"x", [&](Writer &to) { to.number(rect.x); }},
                   {"y", [&](Writer &to) { to.number(rect.y); }},
                   {"width", [&](Writer &to) { to.number(rect.width); }},
                   {"height", [&](Writer &to) { to.number(rect.height); }}});
}

void writeAnchor(Writer &writer, const WindowAnchor &anchor) {
    writer.object({{"bundleID", [&](Writer &to) { to.string(anchor.bundleID); }},
                   {"windowTitle", [&](Writer &to) { to.string(anchor.windowTitle); }},
                   {"relativeRect", [&](Writer &to) { writeRect(to, anchor.relativeRect); }}});
}

Writer::Object configMembers(const CorvaneConfig &config) {
    Writer::Object members = {
        {"clickMode", [&](Writer &to) { to.string(storedValue(config.clickMode)); }},
        {"clickRate", [&](Writer &to) { to.integer(config.clickRate); }},
        {"timeUnit", [&](Writer &to) { to.string(storedValue(config.timeUnit)); }},
        {"maxClicks", [&](Writer &to) { to.integer(config.maxClicks); }}};
    if (config.zoneRect) {
        members["zoneRect"] = [&](Writer &to) { writeRect(to, *config.zoneRect); };
    }
    if (config.windowAnchor) {
        members["windowAnchor"] = [&](Writer &to) { writeAnchor(to, *config.windowAnchor); };
    }
    return members;
}

void writeProfile(Writer &writer, const Profile &profile) {
    Writer::Object members = configMembers(profile.config);
    members["id"] = [&](Writer &to) { to.string(profile.id.text()); };
    members["name"] = [&](Writer &to) { to.string(profile.name); };
    writer.object(members);
}

// Reading: a value of the right kind, or nothing.

const Json *member(const Json &object, const char *key) {
    const auto found = object.find(key);
    return found == object.end() || found->is_null() ? nullptr : &*found;
}

std::optional<std::string> readString(const Json &json) {
    return json.is_string() ? std::optional(json.get<std::string>()) : std::nullopt;
}

std::optional<double> readNumber(const Json &json) {
    return json.is_number() ? std::optional(json.get<double>()) : std::nullopt;
}

std::optional<std::int64_t> readInteger(const Json &json) {
    constexpr auto greatest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (json.is_number_unsigned() && json.get<std::uint64_t>() > greatest) {
        return std::nullopt;
    }
    if (json.is_number_integer()) {
        return json.get<std::int64_t>();
    }
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    const double value = json.is_number() ? json.get<double>() : notANumber;
    const bool isWhole = value >= -0x1p63 && value < 0x1p63 && std::trunc(value) == value;
    return isWhole ? std::optional(static_cast<std::int64_t>(value)) : std::nullopt;
}

std::optional<ClickMode> readClickMode(const Json &json) {
    const auto text = readString(json);
    return text ? clickModeFromStoredValue(*text) : std::nullopt;
}

std::optional<TimeUnit> readTimeUnit(const Json &json) {
    const auto text = readString(json);
    return text ? timeUnitFromStoredValue(*text) : std::nullopt;
}

std::optional<Uuid> readUuid(const Json &json) {
    const auto text = readString(json);
    return text ? Uuid::fromText(*text) : std::nullopt;
}

template <typename Read>
auto readMember(const Json &object, const char *key, Read read) -> decltype(read(object)) {
    const Json *const value = object.is_object() ? member(object, key) : nullptr;
    return value != nullptr ? read(*value) : std::nullopt;
}

std::optional<CodableRect> readRect(const Json &json) {
    const auto x = readMember(json, "x", readNumber);
    const auto y = readMember(json, "y", readNumber);
    const auto width = readMember(json, "width", readNumber);
    const auto height = readMember(json, "height", readNumber);
    if (!x || !y || !width || !height) {
        return std::nullopt;
    }
    return CodableRect{*x, *y, *width, *height};
}

std::optional<WindowAnchor> readAnchor(const Json &json) {
    auto bundleID = readMember(json, "bundleID", readString);
    auto windowTitle = readMember(json, "windowTitle", readString);
    const auto relativeRect = readMember(json, "relativeRect", readRect);
    if (!bundleID || !windowTitle || !relativeRect) {
        return std::nullopt;
    }
    return WindowAnchor{std::move(*bundleID), std::move(*windowTitle), *relativeRect};
}

CorvaneConfig readConfig(const Json &json) {
    const CorvaneConfig defaults;
    return {.clickMode = readMember(json, "clickMode", readClickMode).value_or(defaults.clickMode),
            .zoneRect = readMember(json, "zoneRect", readRect),
            .windowAnchor = readMember(json, "windowAnchor", readAnchor),
            .clickRate = readMember(json, "clickRate", readInteger).value_or(defaults.clickRate),
            .timeUnit = readMember(json, "timeUnit", readTimeUnit).value_or(defaults.timeUnit),
            .maxClicks = readMember(json, "maxClicks", readInteger).value_or(defaults.maxClicks)};
}

/// Whether a member is there although it could not be read.
template <typename Value>
bool isDamaged(const Json &object, const char *key, const std::optional<Value> &value) {
    return !value && member(object, key) != nullptr;
}

std::optional<Profile> readProfile(const Json &json) {
    const auto id = readMember(json, "id", readUuid);
    auto name = readMember(json, "name", readString);
    if (!id || !name || !readMember(json, "clickMode", readClickMode) ||
        !readMember(json, "clickRate", readInteger) ||
        !readMember(json, "timeUnit", readTimeUnit) ||
        !readMember(json, "maxClicks", readInteger)) {
        return std::nullopt;
    }
    Profile profile{*id, std::move(*name), readConfig(json)};
    if (isDamaged(json, "zoneRect", profile.config.zoneRect) ||
        isDamaged(json, "windowAnchor", profile.config.windowAnchor)) {
        return std::nullopt;
    }
    return profile;
}

Json parse(std::string_view text) { return Json::parse(text, nullptr, false); }

} // namespace

std::string encodeConfig(const CorvaneConfig &config) {
    Writer writer;
    writer.object(configMembers(config));
    return writer.take();
}

std::string encodeProfileStore(const ProfileStore &store) {
    Writer writer;
    Writer::Object members = {
        {"profiles", [&](Writer &to) { to.array(store.profiles, writeProfile); }}};
    if (store.activeProfileID) {
        members["activeProfileID"] = [&](Writer &to) { to.string(store.activeProfileID->text()); };
    }
    writer.object(members);
    return writer.take();
}

Outcome<CorvaneConfig> decodeConfig(std::string_view text) {
    const Json json = parse(text);
    if (!json.is_object()) {
        return std::unexpected(Failure{"the file does not hold a JSON object"});
    }
    return readConfig(json);
}

Outcome<ProfileStore> decodeProfileStore(std::string_view text) {
    const Json json = parse(text);
    const Json *const profiles = json.is_object() ? member(json, "profiles") : nullptr;
    if (profiles == nullptr || !profiles->is_array()) {
        return std::unexpected(Failure{"the file does not hold a list of profiles"});
    }
    ProfileStore store;
    for (const Json &element : *profiles) {
        auto profile = readProfile(element);
        if (!profile) {
            return std::unexpected(
                Failure{"profile " + std::to_string(store.profiles.size() + 1) + " is damaged"});
        }
        store.profiles.push_back(std::move(*profile));
    }
    store.activeProfileID = readMember(json, "activeProfileID", readUuid);
    if (isDamaged(json, "activeProfileID", store.activeProfileID)) {
        return std::unexpected(Failure{"the active profile's id is damaged"});
    }
    return store;
}

} // namespace corvane
