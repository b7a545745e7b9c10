#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A profile as it stands in the profiles file. Everything is written as it is.
struct StoredProfile {
    std::string id;
    /// With the escapes of a text in JSON.
    std::string name;
    std::string clickRate = "1";

    bool operator==(const StoredProfile &) const = default;
};

/// 500 profiles with names that are hard to show: very long ones, such as look empty, right to
/// left, emoji, line breaks and characters that mean something to menus. No two have the same rate.
std::vector<StoredProfile> manyOddProfiles();

/// The content of a profiles file as the program writes it, byte for byte: profiles that click at
/// the free cursor, so many times a second, without a limit.
std::string profilesText(const std::vector<StoredProfile> &profiles,
                         const std::optional<std::string> &activeID = std::nullopt);

/// The identifiers that a profiles file gives to its profiles, in its order.
std::vector<std::string> profileIDs(const std::string &text);

} // namespace corvane::desktop
