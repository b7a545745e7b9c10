#pragma once

#include "presentation/CommandRequest.h"

namespace corvane {

class AppState;

/// What the program is doing and with what settings: in words, or as JSON whose members stay.
/// Refused when the settings have no JSON form. Main thread.
CommandReply statusReport(const AppState &appState, bool isHotkeyRegistered, bool asJson);

/// The saved profiles in their order: a name a line, or names and ids as JSON. Main thread.
CommandReply profilesReport(const AppState &appState, bool asJson);

} // namespace corvane
