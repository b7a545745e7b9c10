#include "KWinDesktop.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <linux/input-event-codes.h>
#include <thread>

namespace corvane::desktop {

KWinDesktop::KWinDesktop(Permission permission, double scale) {
    writeSettings();
    permit(CORVANE_WAYLAND_CLIENT);
    if (permission == Permission::given) {
        permit(CORVANE_PROGRAM);
    }
    startMessageBus();
    startKWin(scale);
    takeStatusIcons();
    control_ = std::make_unique<HelperProgram>(*this, CORVANE_WAYLAND_CLIENT);
}

/// Nothing moves or opens on its own, so that pictures show what is there; and the pointer crosses
/// from one monitor to the other unhindered. KWin 6 finds the desktop files of programs through the
/// menu that is otherwise Plasma's.
void KWinDesktop::writeSettings() const {
    const auto folder = home() / ".config";
    writeFile(folder / "menus/applications.menu",
              "<Menu><Name>Applications</Name><DefaultAppDirs/><Include><All/></Include></Menu>\n");
    writeFile(folder / "kdeglobals", "[KDE]\nAnimationDurationFactor=0\n");
    writeFile(folder / "kwinrc", "[Plugins]\noverviewEnabled=false\nwindowviewEnabled=false\n"
                                 "[ElectricBorders]\nTopLeft=None\n[EdgeBarrier]\nEdgeBarrier=0\n");
}

void KWinDesktop::permit(const std::string &program) const {
    const std::string name = std::filesystem::path(program).filename();
    writeFile(home() / ".local/share/applications" / (name + "-test.desktop"),
              "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + program +
                  "\nX-KDE-Wayland-Interfaces=org_kde_kwin_fake_input\n");
}

void KWinDesktop::startKWin(double scale) {
    // The installed file has a capability that a container may not grant; a copy has none.
    const auto program = folder() / "kwin_wayland";
    std::filesystem::copy_file("/usr/bin/kwin_wayland", program);
    const auto session = folder() / "session";
    writeFile(session, "#!/bin/sh\necho \"$WAYLAND_DISPLAY $DISPLAY\" > " +
                           sessionVariables().string() + "\n");
    std::filesystem::permissions(session, std::filesystem::perms::owner_all);
    Environment environment = this->environment();
    // The other kinds of compositing take no screenshots.
    environment["KWIN_COMPOSE"] = "O2";
    environment["KWIN_SCREENSHOT_NO_PERMISSION_CHECKS"] = "1";
    environment["QT_QPA_PLATFORM"] = "wayland";
    startCompositor({program, "--virtual", "--width", "1280", "--height", "800", "--scale",
                     std::to_string(scale), "--output-count", "2", "--xwayland", "--no-lockscreen",
                     "--no-kactivities", session},
                    environment, {"WAYLAND_DISPLAY", "DISPLAY"});
}

void KWinDesktop::pressHotKey(std::chrono::milliseconds held) const {
    for (const int key : {KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_Y}) {
        change(key, true);
    }
    std::this_thread::sleep_for(held);
    // While Super alone is held, KWin takes the first click to move the window.
    for (const int key : {KEY_Y, KEY_LEFTMETA, KEY_LEFTSHIFT}) {
        change(key, false);
    }
}

void KWinDesktop::tapEscape() const {
    change(KEY_ESC, true);
    change(KEY_ESC, false);
}

bool KWinDesktop::takesScreenshots() const {
    return control_->request("picture\t" + (folder() / "try.png").string()).back() != "refused";
}

std::string KWinDesktop::sightAt(Position position) const {
    if (takesScreenshots()) {
        return WaylandDesktop::sightAt(position);
    }
    return control_
        ->request("front\t" + std::to_string(position.x) + "\t" + std::to_string(position.y))
        .front();
}

void KWinDesktop::saveScreenshot(const std::filesystem::path &file) const {
    control_->demand("picture\t" + file.string());
}

void KWinDesktop::change(int key, bool isPress) const {
    control_->demand("key\t" + std::to_string(key) + "\t" + (isPress ? "1" : "0"));
}

void KWinDesktop::requestPlace(const std::string &title, Position position) const {
    control_->demand("place\t" + title + "\t" + std::to_string(position.x) + "\t" +
                     std::to_string(position.y));
}

std::optional<Position> KWinDesktop::positionOf(const std::string &title) const {
    const auto answer = control_->request("where\t" + title);
    if (answer.back() == "refused") {
        return std::nullopt;
    }
    const auto fields = split(answer.front(), '\t');
    return Position{std::stoi(fields.at(0)), std::stoi(fields.at(1))};
}

} // namespace corvane::desktop
