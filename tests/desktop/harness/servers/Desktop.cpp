#include "Desktop.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <csignal>
#include <cstdlib>
#include <utility>

namespace corvane::desktop {

namespace {

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

} // namespace

Desktop::Desktop()
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
}

void Desktop::adoptEnvironment() const {
    for (const auto &[name, value] : environment_) {
        setenv(name.c_str(), value.c_str(), 1);
    }
}

std::unique_ptr<ChildProcess> Desktop::start(std::vector<std::string> arguments,
                                             const PrivateMounts *mounts) const {
    return std::make_unique<ChildProcess>(ChildProcess::Launch{.arguments = std::move(arguments),
                                                               .environment = environment_,
                                                               .outputFolder = output_,
                                                               .mounts = mounts});
}

std::string Desktop::run(std::vector<std::string> arguments) const {
    const std::string name = arguments.front();
    const auto program = start(std::move(arguments));
    if (program->waitForEnd() != ProcessEnd{.exitCode = 0}) {
        throw std::runtime_error(name + " failed: " + program->standardError());
    }
    return program->standardOutput();
}

void Desktop::startMessageBus() {
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

void Desktop::stopMessageBus() {
    messageBus_->signal(SIGKILL);
    messageBus_->waitForEnd();
}

} // namespace corvane::desktop
