#pragma once

#include "model/Profile.h"

#include <optional>
#include <vector>

namespace corvane {

/// All saved profiles, as the profiles file holds them.
struct ProfileStore {
    /// In order of creation.
    std::vector<Profile> profiles;
    /// The profile last saved or applied; need not be in the list.
    std::optional<Uuid> activeProfileID{};

    bool operator==(const ProfileStore &) const = default;
};

} // namespace corvane
