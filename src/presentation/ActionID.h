#pragma once

namespace corvane {

/// What the user can have the program do from its menu.
enum class ActionID {
    none,
    openAccessibilitySettings,
    startClicking,
    stopClicking,
    setModeCursor,
    setModeZone,
    selectZone,
    /// Of the profile that the command names by its id.
    loadProfile,
    saveAsProfile,
    showConfig,
    terminate
};

} // namespace corvane
