#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace corvane::platform {

/// This program as the system sees it. Main thread.
class Application {
  public:
    virtual ~Application() = default;

    /// Ends the event loop after the current turn; the shutdown sequence follows.
    virtual void terminate() = 0;

    /// Brings the program's windows to the front and gives them the keyboard.
    virtual void activateIgnoringOtherApps() = 0;

    /// "2.1"; nothing when the program carries no version.
    virtual std::optional<std::string> shortVersion() const = 0;
    /// "37"; nothing when the program carries no build number.
    virtual std::optional<std::string> buildVersion() const = 0;
    /// The application icon's file; nothing when it is missing.
    virtual std::optional<std::filesystem::path> iconFile() const = 0;
    /// The current user's home directory, absolute.
    virtual std::filesystem::path homeDirectory() const = 0;
};

} // namespace corvane::platform
