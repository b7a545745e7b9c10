#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// How a program reaches the screen.
enum class DisplayServer {
    /// The server is macOS itself.
    macos,
    x11,
    /// An X server that only carries X programs into a Wayland session.
    xwayland,
    /// A Wayland session whose compositor lets programs click.
    wayland,
    /// A Wayland session without an X server.
    waylandOnly,
    none
};

/// Whether the hot key could be had at this moment.
enum class HotKeyState {
    free,
    taken,
    noSuchKey,
    /// The system gives a key to every program that registers it and does not report the others.
    unknown,
    /// The desktop gives no program a hot key.
    notOffered
};

/// Where a status item would be shown.
enum class StatusArea { menuBar, panel, systemTray, none };

/// A file or folder as this user meets it. One that does not exist is as usable as the folder it
/// would be made in.
struct FileFact {
    std::filesystem::path path;
    bool isReadable = true;
    bool isWritable = true;
    /// Why Corvane cannot use what the file holds; empty where it can.
    std::string damage{};

    bool operator==(const FileFact &) const = default;
};

/// A desktop as a back end finds it; what has no value plays no part there.
struct DesktopFacts {
    DisplayServer displayServer = DisplayServer::none;
    /// Such as ":0"; empty where displays have no names.
    std::string displayName{};
    /// Whether the session around the display says that it is a Wayland session.
    bool isWaylandSession = false;
    /// Whether the system lets this program click.
    std::optional<bool> takesClicks{};
    /// Whether the desktop asks the user before it lets a program click; how the user has answered
    /// only a running Corvane can tell.
    bool needsConsent = false;
    std::optional<HotKeyState> hotKey{};
    /// The hot key as this system writes it, such as "Super+Shift+Y".
    std::string hotKeyName{};
    std::optional<StatusArea> statusArea{};
    std::optional<bool> hasCompositor{};
    /// Empty for none.
    std::optional<std::string> windowManager{};
    /// The properties that Corvane needs and the window manager does not set.
    std::vector<std::string> missingHints{};

    bool operator==(const DesktopFacts &) const = default;
};

} // namespace corvane
