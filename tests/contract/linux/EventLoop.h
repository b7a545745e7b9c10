#pragma once

#include "platform/x11/connection/XcbEvents.h"

#include <functional>

namespace corvane::contract {

/// Lets Qt's event loop go on until the condition holds; false when it does not within a generous
/// time.
bool turnUntil(const std::function<bool()> &condition);

/// Lets the event loop go on until everything that clients have caused on the server so far has
/// arrived and been delivered.
void settle(const x11::XcbEvents &events);

} // namespace corvane::contract
