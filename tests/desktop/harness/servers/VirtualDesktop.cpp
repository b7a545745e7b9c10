#include "VirtualDesktop.h"

#include "TextFile.h"
#include "WaitUntil.h"
#include "probes/ProbeWindow.h"

#include <csignal>
#include <stdexcept>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace corvane::desktop {

namespace {

constexpr std::string_view compositorSelection = "_NET_WM_CM_S0";
constexpr std::string_view traySelection = "_NET_SYSTEM_TRAY_S0";

constexpr std::string_view panelSettings = R"(panel_items = S
panel_size = 100% 30
panel_position = bottom center horizontal
panel_layer = top
systray_padding = 2 2 2
systray_icon_size = 22
background_color = #303030 100
rounded = 0
panel_background_id = 1
)";

} // namespace

VirtualDesktop::VirtualDesktop(const Options &options) {
    startServer(options);
    startMessageBus();
    if (options.isAccessible) {
        startAccessibilityBus();
    }
    startWindowManager(options.windowManager);
    if (options.hasCompositor) {
        startCompositor();
    }
    if (options.hasPanel) {
        startPanel();
    } else if (options.takesStatusIcons) {
        connection_->takeSelection(traySelection);
    }
}

void VirtualDesktop::startServer(const Options &options) {
    const std::string screen =
        std::to_string(options.width) + "x" + std::to_string(options.height) + "x24";
    std::vector<std::string> arguments{"Xvfb", "-displayfd", "1",   "-screen", "0",
                                       screen, "-nolisten",  "tcp", "-noreset"};
    for (const std::string &extension : options.withoutExtensions) {
        arguments.insert(arguments.end(), {"-extension", extension});
    }
    Environment environment = this->environment();
    if (options.hasClockToSet) {
        setServerClock({});
        environment["LD_PRELOAD"] = "/usr/$LIB/faketime/libfaketime.so.1";
        environment["FAKETIME_TIMESTAMP_FILE"] = clockFile();
        environment["FAKETIME_NO_CACHE"] = "1";
    }
    server_ = std::make_unique<ChildProcess>(ChildProcess::Launch{
        .arguments = arguments, .environment = environment, .outputFolder = output()});
    // The server prints its number when it takes connections.
    require("The X server", *server_, [this] { return server_->standardOutput().ends_with('\n'); });
    display_ = ":" + wholeLines(server_->standardOutput()).front();
    set("DISPLAY", display_);
    connection_ = std::make_unique<DisplayConnection>(display_);
}

std::filesystem::path VirtualDesktop::clockFile() const { return folder() / "server-clock"; }

void VirtualDesktop::setServerClock(std::chrono::seconds offset) const {
    const std::string sign = offset.count() < 0 ? "" : "+";
    // The server reads it all the time and must not find half of it.
    const std::filesystem::path unfinished = folder() / "next-server-clock";
    writeFile(unfinished, sign + std::to_string(offset.count()) + "\n");
    std::filesystem::rename(unfinished, clockFile());
}

void VirtualDesktop::startAccessibilityBus() {
    unset("NO_AT_BRIDGE");
    accessibilityBus_ = start({"/usr/libexec/at-spi-bus-launcher", "--launch-immediately"});
    require("The accessibility bus", *accessibilityBus_,
            [this] { return connection_->hasProperty(connection_->root(), "AT_SPI_BUS"); });
}

void VirtualDesktop::startWindowManager(WindowManager windowManager) {
    if (windowManager == WindowManager::none) {
        return;
    }
    windowManager_ = start(commandOf(windowManager));
    require("The window manager", *windowManager_, [this] { return hasWindowManager(); });
    ProbeWindow probe(*connection_);
    require("The window manager", *windowManager_, [&probe] { return probe.isManaged(); });
    probe.close();
    require("The window manager", *windowManager_, [&probe] { return !probe.isListed(); });
}

bool VirtualDesktop::hasWindowManager() const {
    constexpr std::string_view name = "_NET_SUPPORTING_WM_CHECK";
    const auto window = connection_->property(connection_->root(), name);
    return window && connection_->property(*window, name) == window;
}

void VirtualDesktop::startCompositor() {
    compositor_ = start({"picom", "--backend", "xrender", "--config", "/dev/null"});
    require("The compositor", *compositor_,
            [this] { return connection_->selectionOwner(compositorSelection) != XCB_WINDOW_NONE; });
    const TransparencyProbe probe(*connection_);
    require("The compositor", *compositor_, [&probe] { return probe.isTransparent(); });
}

void VirtualDesktop::stopCompositor() {
    compositor_.reset();
    if (!waitUntil([this] {
            return connection_->selectionOwner(compositorSelection) == XCB_WINDOW_NONE;
        })) {
        throw std::runtime_error("The compositor did not end");
    }
}

void VirtualDesktop::startPanel() {
    const std::filesystem::path settings = folder() / "panel.conf";
    writeFile(settings, panelSettings);
    panel_ = start({"tint2", "-c", settings});
    require("The panel", *panel_,
            [this] { return connection_->selectionOwner(traySelection) != XCB_WINDOW_NONE; });
}

bool VirtualDesktop::isWhole() const {
    const auto runs = [](const std::unique_ptr<ChildProcess> &program) {
        return !program || program->isRunning();
    };
    return runs(server_) && hasMessageBus() && runs(accessibilityBus_) && runs(windowManager_) &&
           runs(compositor_) && runs(panel_);
}

void VirtualDesktop::stopServer() {
    server_->signal(SIGKILL);
    server_->waitForEnd();
}

} // namespace corvane::desktop
