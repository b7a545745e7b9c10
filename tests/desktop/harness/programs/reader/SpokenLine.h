#pragma once

#include "AccessibleObject.h"

#include <optional>
#include <string>

namespace corvane::desktop {

/// What a screen reader says about the object on its own, on one line; nothing about what only
/// holds others.
std::optional<std::string> spokenLine(const AccessibleObject &object);

/// Whether the inner parts of the object only repeat what it says itself.
bool isSpokenWhole(const AccessibleObject &object);

} // namespace corvane::desktop
