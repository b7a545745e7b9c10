#include "VirtualDesktop.h"

#include "ProbeWindow.h"
#include "TextFile.h"
#include "TransparencyProbe.h"
#include "WaitUntil.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace corvane::desktop {

namespace {

constexpr std::string_view compositorSelection = "_NET_WM_CM_S0";
constexpr std::string_view traySelection = "_NET_SYSTEM_TRAY_S0";

std::string inherited(const char *name, const char *otherwise) {
    const char *value = std::getenv(name);
    return value != nullptr ? value : otherwise;
}

/// A session bus that listens in `folder`. It starts services only for window managers that do
/// not work without theirs.
std::string messageBusSettings(const std::filesystem::path &folder) {
    return R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=)" +
           (folder / "bus").string() + R"(</listen>
  <servicedir>)" +
           (folder / "services").string() + R"(</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";
}

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

/// Waits for what a program that has just been started must bring about.
template <typename Condition>
void require(const std::string &what, ChildProcess &program, Condition condition) {
    bool isReady = false;
    waitUntil([&] {
        isReady = condition();
        return isReady || !program.isRunning();
    });
    if (!isReady) {
        throw std::runtime_error(what + " did not start: " + program.standardError());
    }
}

} // namespace

VirtualDesktop::VirtualDesktop(const Options &options)
    : home_(folder_.makeFolder("home")),
      output_(folder_.makeFolder("output")),
      environment_{{"PATH", inherited("PATH", "/usr/bin:/bin")},
                   {"HOME", home_},
                   {"XDG_RUNTIME_DIR", folder_.makeFolder("runtime")},
                   {"LANG", "C.UTF-8"},
                   {"NO_AT_BRIDGE", "1"},
                   {"GSETTINGS_BACKEND", "memory"},
                   {"KWIN_COMPOSE", "N"}} {
    for (const char *name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (const char *value = std::getenv(name); value != nullptr) {
            environment_[name] = value;
        }
    }
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
        takeStatusIcons();
    }
}

void VirtualDesktop::adoptEnvironment() const {
    for (const auto &[name, value] : environment_) {
        setenv(name.c_str(), value.c_str(), 1);
    }
}

std::unique_ptr<ChildProcess> VirtualDesktop::start(std::vector<std::string> arguments,
                                                    const PrivateMounts *mounts) const {
    return std::make_unique<ChildProcess>(ChildProcess::Launch{.arguments = std::move(arguments),
                                                               .environment = environment_,
                                                               .outputFolder = output_,
                                                               .mounts = mounts});
}

std::string VirtualDesktop::run(std::vector<std::string> arguments) const {
    const std::string name = arguments.front();
    const auto program = start(std::move(arguments));
    if (program->waitForEnd() != ProcessEnd{.exitCode = 0}) {
        throw std::runtime_error(name + " failed: " + program->standardError());
    }
    return program->standardOutput();
}

void VirtualDesktop::startServer(const Options &options) {
    const std::string screen =
        std::to_string(options.width) + "x" + std::to_string(options.height) + "x24";
    std::vector<std::string> arguments{"Xvfb", "-displayfd", "1",   "-screen", "0",
                                       screen, "-nolisten",  "tcp", "-noreset"};
    for (const std::string &extension : options.withoutExtensions) {
        arguments.insert(arguments.end(), {"-extension", extension});
    }
    Environment environment = environment_;
    if (options.hasClockToSet) {
        setServerClock({});
        environment["LD_PRELOAD"] = "/usr/$LIB/faketime/libfaketime.so.1";
        environment["FAKETIME_TIMESTAMP_FILE"] = clockFile();
        environment["FAKETIME_NO_CACHE"] = "1";
    }
    server_ = std::make_unique<ChildProcess>(ChildProcess::Launch{
        .arguments = arguments, .environment = environment, .outputFolder = output_});
    // The server prints its number when it takes connections.
    require("The X server", *server_, [this] { return server_->standardOutput().ends_with('\n'); });
    display_ = ":" + wholeLines(server_->standardOutput()).front();
    environment_["DISPLAY"] = display_;
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

void VirtualDesktop::startMessageBus() {
    const std::filesystem::path busFolder = folder_.makeFolder("bus");
    const std::filesystem::path services = busFolder / "services";
    const std::filesystem::path settingsService =
        "/usr/share/dbus-1/services/org.xfce.Xfconf.service";
    std::filesystem::create_directory(services);
    if (std::error_code isThere; std::filesystem::exists(settingsService)) {
        std::filesystem::create_symlink(settingsService, services / settingsService.filename(),
                                        isThere);
    }
    const std::filesystem::path settings = busFolder / "session.conf";
    writeFile(settings, messageBusSettings(busFolder));
    messageBus_ =
        start({"dbus-daemon", "--nofork", "--print-address", "--config-file=" + settings.string()});
    require("The message bus", *messageBus_,
            [this] { return messageBus_->standardOutput().ends_with('\n'); });
    // Like that of a login session, the address leads to whatever bus listens there.
    environment_["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + (busFolder / "bus").string();
}

void VirtualDesktop::stopMessageBus() {
    messageBus_->signal(SIGKILL);
    messageBus_->waitForEnd();
}

void VirtualDesktop::startAccessibilityBus() {
    environment_.erase("NO_AT_BRIDGE");
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

/// With the test's own connection.
void VirtualDesktop::takeStatusIcons() const {
    const xcb_window_t window = xcb_generate_id(connection_->get());
    xcb_create_window(connection_->get(), XCB_COPY_FROM_PARENT, window, connection_->root(), 0, 0,
                      1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(connection_->get(), window, connection_->atom(traySelection),
                            XCB_CURRENT_TIME);
    connection_->synchronize();
}

bool VirtualDesktop::isWhole() const {
    const auto runs = [](const std::unique_ptr<ChildProcess> &program) {
        return !program || program->isRunning();
    };
    return runs(server_) && runs(messageBus_) && runs(accessibilityBus_) && runs(windowManager_) &&
           runs(compositor_) && runs(panel_);
}

void VirtualDesktop::stopServer() {
    server_->signal(SIGKILL);
    server_->waitForEnd();
}

} // namespace corvane::desktop
