#pragma once

#include "ChildProcess.h"
#include "Desktop.h"
#include "DisplayConnection.h"
#include "WindowManager.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A headless desktop: an X server on a free display with its own home directory, message
/// bus and, as the options say, window manager, compositor and panel. Ready to be used when
/// constructed; ends with its owner.
class VirtualDesktop : public Desktop {
  public:
    struct Options {
        /// In pixels.
        std::uint16_t width = 1280;
        std::uint16_t height = 800;
        WindowManager windowManager = WindowManager::openbox;
        bool hasCompositor = false;
        /// A panel that shows status icons (XEmbed).
        bool hasPanel = false;
        /// A bus for assistive technology (AT-SPI).
        bool isAccessible = false;
        /// Without a panel, another program owns the tray selection and shows no icons.
        bool takesStatusIcons = true;
        /// The X server's clock can be set.
        bool hasClockToSet = false;
        /// Extensions the X server does without, such as "XTEST".
        std::vector<std::string> withoutExtensions;
    };

    explicit VirtualDesktop(const Options &options);
    VirtualDesktop() : VirtualDesktop(Options{}) {}

    /// Such as ":99".
    const std::string &display() const { return display_; }
    const DisplayConnection &connection() const { return *connection_; }

    /// Starts a compositor and waits until it has taken over.
    void startCompositor();
    /// Ends it and waits until translucency is gone.
    void stopCompositor();

    /// Whether every program of the desktop still runs.
    bool isWhole() const;

    pid_t serverPid() const { return server_->pid(); }

    /// Sets the X server's clock that far from the machine's, as when it steps.
    void setServerClock(std::chrono::seconds offset) const;

    /// Takes the X server away from everybody.
    void stopServer();

  private:
    void startServer(const Options &options);
    std::filesystem::path clockFile() const;
    void startWindowManager(WindowManager windowManager);
    void startPanel();
    void startAccessibilityBus();
    bool hasWindowManager() const;

    std::string display_;
    // In the order in which they need each other.
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<DisplayConnection> connection_;
    std::unique_ptr<ChildProcess> accessibilityBus_;
    std::unique_ptr<ChildProcess> windowManager_;
    std::unique_ptr<ChildProcess> compositor_;
    std::unique_ptr<ChildProcess> panel_;
};

} // namespace corvane::desktop
