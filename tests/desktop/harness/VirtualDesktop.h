#pragma once

#include "ChildProcess.h"
#include "DisplayConnection.h"
#include "Environment.h"
#include "TemporaryFolder.h"
#include "WindowManager.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A desktop nobody looks at: an X server on a free display with its own home directory, message
/// bus and, as asked for, window manager, compositor and panel. Ready to be used when constructed;
/// ends with its owner.
class VirtualDesktop {
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
        /// Without a panel, somebody else who takes status icons and shows them nowhere.
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

    /// Where programs on this desktop have their home.
    const std::filesystem::path &home() const { return home_; }

    /// Private to this desktop; for whatever a test wants to keep in files.
    const std::filesystem::path &folder() const { return folder_.path(); }

    /// What a program is started with to be on this desktop.
    const Environment &environment() const { return environment_; }

    /// Makes the test's own process a program on this desktop.
    void adoptEnvironment() const;

    /// Starts a program on this desktop.
    std::unique_ptr<ChildProcess> start(std::vector<std::string> arguments,
                                        const PrivateMounts *mounts = nullptr) const;

    /// Runs a program on this desktop to its end; throws unless it succeeds. What it printed.
    std::string run(std::vector<std::string> arguments) const;

    /// Starts a compositor and waits until it has taken over.
    void startCompositor();
    /// Ends it and waits until translucency is gone.
    void stopCompositor();

    /// Starts a session bus where the last one was, and waits until it takes connections.
    void startMessageBus();
    /// Kills it.
    void stopMessageBus();

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
    void takeStatusIcons() const;
    bool hasWindowManager() const;

    TemporaryFolder folder_;
    std::filesystem::path home_;
    std::filesystem::path output_;
    std::string display_;
    Environment environment_;
    // In the order in which they need each other.
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<DisplayConnection> connection_;
    std::unique_ptr<ChildProcess> messageBus_;
    std::unique_ptr<ChildProcess> accessibilityBus_;
    std::unique_ptr<ChildProcess> windowManager_;
    std::unique_ptr<ChildProcess> compositor_;
    std::unique_ptr<ChildProcess> panel_;
};

} // namespace corvane::desktop
