#include "GnomeDesktop.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <cstdlib>
#include <linux/input-event-codes.h>
#include <stdexcept>
#include <thread>

namespace corvane::desktop {

GnomeDesktop::GnomeDesktop() {
    set("GSETTINGS_BACKEND", "keyfile");
    set("LIBGL_ALWAYS_SOFTWARE", "1");
    set("WAYLAND_DISPLAY", "wayland-gnome");
    set("XDG_CURRENT_DESKTOP", "GNOME");
    set("XDG_SESSION_TYPE", "wayland");
    writeSettings();
    startMessageBus();
    startPipeWire();
    startShell();
    startPortal();
    takeStatusIcons();
}

/// Nothing moves or opens on its own, so that pictures show what is there.
void GnomeDesktop::writeSettings() const {
    writeFile(home() / ".config/glib-2.0/settings/keyfile",
              "[org/gnome/shell]\nwelcome-dialog-last-shown-version='99'\n"
              "[org/gnome/desktop/interface]\nenable-animations=false\nenable-hot-corners=false\n"
              "[org/gnome/desktop/notifications]\nshow-banners=false\n"
              "[org/gnome/desktop/session]\nidle-delay=uint32 0\n"
              "[org/gnome/mutter]\noverlay-key=''\nedge-tiling=false\n");
}

void GnomeDesktop::startShell() {
    Environment environment = this->environment();
    // It does not start without a system bus.
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = environment.at("DBUS_SESSION_BUS_ADDRESS");
    startCompositor({"gnome-shell", "--headless", "--unsafe-mode", "--virtual-monitor", "1280x800",
                     "--virtual-monitor", "800x600", "--wayland-display",
                     environment.at("WAYLAND_DISPLAY")},
                    environment, {});
    control_ = std::make_unique<HelperProgram>(*this, CORVANE_WAYLAND_CLIENT);
    const auto variables = split(control_->request("variables").front(), '\t');
    set("DISPLAY", variables.at(0));
    set("XAUTHORITY", variables.at(1));
    // For the test's own connection to the X server.
    setenv("XAUTHORITY", variables.at(1).c_str(), 1);
    control_->demand("desk");
}

void GnomeDesktop::startPipeWire() {
    services_.push_back(start({"pipewire"}));
    const std::filesystem::path folder = environment().at("XDG_RUNTIME_DIR");
    require("PipeWire", *services_.back(),
            [&] { return std::filesystem::exists(folder / "pipewire-0"); });
    // The other parts of version 0.4 do not work without a login manager.
    const bool hasParts = std::filesystem::exists("/usr/share/wireplumber/policy.conf");
    services_.push_back(start(hasParts
                                  ? std::vector<std::string>{"wireplumber", "-c", "policy.conf"}
                                  : std::vector<std::string>{"wireplumber"}));
}

void GnomeDesktop::startPortal() {
    const auto startService = [this](const std::string &program, const std::string &name) {
        services_.push_back(start({"/usr/libexec/" + program}));
        run({"gdbus", "wait", "--session", "--timeout", "20", name});
    };
    startService("xdg-permission-store", "org.freedesktop.impl.portal.PermissionStore");
    startService("xdg-desktop-portal-gnome", "org.freedesktop.impl.portal.desktop.gnome");
    startService("xdg-desktop-portal", "org.freedesktop.portal.Desktop");
}

GnomeDesktop::PortalWindow GnomeDesktop::portalWindow() const {
    if (run({"gnome-shell", "--version"}).starts_with("GNOME Shell 43")) {
        // The first monitor is chosen already.
        return {.blueFromTheStart = {80, 22},
                .monitorsToChoose = {{260, 190}},
                .remoteInteraction = {80, 276},
                .share = {80, 22}};
    }
    return {.blueFromTheStart = {426, 91},
            .monitorsToChoose = {{429, 362}, {173, 334}},
            .remoteInteraction = {75, 156},
            .share = {48, 22}};
}

bool GnomeDesktop::consent() const {
    const std::string guide = "Accessibility";
    const std::string question = "xdg-desktop-portal-gnome";
    awaitFocus(guide);
    tap(KEY_ENTER);
    // The window moves to its place after it has come up.
    const auto at = [&](int fromRight, int fromTop) {
        const Area frame = awaitWindow(question);
        return Position{frame.x + frame.width - fromRight, frame.y + fromTop};
    };
    const PortalWindow window = portalWindow();
    const auto place = [&](Position offset) { return at(offset.x, offset.y); };
    const auto remoteInteraction = [&] { return place(window.remoteInteraction); };
    awaitBlue([&] { return place(window.blueFromTheStart); });
    for (const Position monitor : window.monitorsToChoose) {
        click(place(monitor));
    }
    click(remoteInteraction());
    awaitBlue(remoteInteraction);
    click(place(window.share));
    if (!waitUntil([&] { return !frameOf(question); })) {
        throw std::runtime_error("The portal's window stays open");
    }
    return true;
}

void GnomeDesktop::awaitFocus(const std::string &title) const {
    if (!waitUntil([&] { return control_->request("focused").front() == title; })) {
        throw std::runtime_error("No such window has the keyboard: " + title);
    }
}

/// As GNOME draws what is switched on or suggested.
void GnomeDesktop::awaitBlue(const std::function<Position()> &position) const {
    const bool isBlue = waitUntil([&] {
        const Pixel pixel = colourAt(position());
        return pixel.blue > pixel.red + 100;
    });
    if (!isBlue) {
        throw std::runtime_error("The portal's window does not look as it should");
    }
}

void GnomeDesktop::pressHotKey(std::chrono::milliseconds held) const {
    for (const int key : {KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_Y}) {
        change(key, true);
    }
    std::this_thread::sleep_for(held);
    for (const int key : {KEY_Y, KEY_LEFTSHIFT, KEY_LEFTMETA}) {
        change(key, false);
    }
}

void GnomeDesktop::tap(int key) const {
    change(key, true);
    change(key, false);
}

void GnomeDesktop::tapEscape() const { tap(KEY_ESC); }

void GnomeDesktop::saveScreenshot(const std::filesystem::path &file) const {
    control_->demand("picture\t" + file.string());
}

void GnomeDesktop::change(int key, bool isPress) const {
    control_->demand("key\t" + std::to_string(key) + "\t" + (isPress ? "1" : "0"));
}

void GnomeDesktop::click(Position position) const {
    control_->demand("point\t" + std::to_string(position.x) + "\t" + std::to_string(position.y));
    control_->demand("button\t" + std::to_string(BTN_LEFT) + "\t1");
    control_->demand("button\t" + std::to_string(BTN_LEFT) + "\t0");
}

/// GNOME Shell itself may be about to place a new window.
void GnomeDesktop::requestPlace(const std::string &title, Position position) const {
    waitUntil([&] {
        control_->demand("place\t" + title + "\t" + std::to_string(position.x) + "\t" +
                         std::to_string(position.y));
        return positionOf(title) == position;
    });
}

std::optional<Position> GnomeDesktop::positionOf(const std::string &title) const {
    const auto frame = frameOf(title);
    // A window that is not drawn yet is about to be placed.
    return frame && frame->width > 0 ? std::optional(Position{frame->x, frame->y}) : std::nullopt;
}

std::optional<Area> GnomeDesktop::frameOf(const std::string &window) const {
    const auto answer = control_->request("where\t" + window);
    if (answer.back() == "refused") {
        return std::nullopt;
    }
    const auto fields = split(answer.front(), '\t');
    return Area{std::stoi(fields.at(0)), std::stoi(fields.at(1)), std::stoi(fields.at(2)),
                std::stoi(fields.at(3))};
}

Area GnomeDesktop::awaitWindow(const std::string &window) const {
    std::optional<Area> frame;
    const bool isShown = waitUntil([&] {
        frame = frameOf(window);
        return frame && frame->width > 0;
    });
    if (!isShown) {
        throw std::runtime_error("No such window: " + window);
    }
    return *frame;
}

} // namespace corvane::desktop
