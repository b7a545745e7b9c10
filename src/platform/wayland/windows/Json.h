#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace corvane::wayland {

/// The member of that name; null where there is none, also of what is no object.
inline const nlohmann::json &memberOf(const nlohmann::json &object, const char *key) {
    static const nlohmann::json nothing;
    if (!object.is_object()) {
        return nothing;
    }
    const auto member = object.find(key);
    return member != object.end() ? *member : nothing;
}

// What a member says; empty, 0 or false where it is of another type.

inline std::string textAt(const nlohmann::json &object, const char *key) {
    const nlohmann::json &member = memberOf(object, key);
    return member.is_string() ? member.get<std::string>() : std::string();
}

inline double numberAt(const nlohmann::json &object, const char *key) {
    const nlohmann::json &member = memberOf(object, key);
    return member.is_number() ? member.get<double>() : 0;
}

inline bool flagAt(const nlohmann::json &object, const char *key) {
    const nlohmann::json &member = memberOf(object, key);
    return member.is_boolean() && member.get<bool>();
}

} // namespace corvane::wayland
