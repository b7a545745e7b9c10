#include "LabwcDesktop.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <stdexcept>

namespace corvane::desktop {

namespace {

/// Of the windows of a `WaylandClient`.
constexpr Pixel windowColour{0, 160, 0};

/// A key that nobody presses but `place`.
constexpr const char *placingKey = "F12";

std::string keyBinding(const std::string &key, const std::string &action) {
    return "<keybind key=\"" + key + "\">" + action + "</keybind>\n";
}

} // namespace

LabwcDesktop::LabwcDesktop() {
    writeSettings();
    startMessageBus();
    startLabwc();
    takeStatusIcons();
    constexpr const char *anHourInMilliseconds = "3600000";
    keyboard_ = start({"wtype", "-s", anHourInMilliseconds, "-k", "Shift_L"});
}

/// The hot key acts when it is let go: labwc runs the command again and again while it is held.
void LabwcDesktop::writeSettings(const std::string &placing) const {
    writeFile(home() / ".config/labwc/rc.xml",
              "<labwc_config><keyboard>\n<keybind key=\"W-S-y\" onRelease=\"yes\">"
              "<action name=\"Execute\" command=\"" CORVANE_PROGRAM " toggle\"/></keybind>\n" +
                  placing + "</keyboard><mouse><default/></mouse></labwc_config>\n");
}

void LabwcDesktop::startLabwc() {
    const auto session = folder() / "session";
    writeFile(session, "#!/bin/sh\necho \"$WAYLAND_DISPLAY $DISPLAY $LABWC_PID\" > " +
                           sessionVariables().string() + "\n");
    std::filesystem::permissions(session, std::filesystem::perms::owner_all);
    Environment environment = this->environment();
    environment["WLR_BACKENDS"] = "headless";
    environment["WLR_RENDERER"] = "pixman";
    environment["WLR_LIBINPUT_NO_DEVICES"] = "1";
    environment["WLR_HEADLESS_OUTPUTS"] = "2";
    startCompositor({"labwc", "-s", session}, environment,
                    {"WAYLAND_DISPLAY", "DISPLAY", "LABWC_PID"});
}

void LabwcDesktop::place(const std::string &title, Position position) const {
    writeSettings(keyBinding(placingKey, "<action name=\"ForEach\"><query title=\"" + title +
                                             "\"/><then><action name=\"MoveTo\" x=\"" +
                                             std::to_string(position.x) + "\" y=\"" +
                                             std::to_string(position.y) + "\"/></then></action>"));
    const bool isThere = waitUntil([&] {
        run({"labwc", "--reconfigure"});
        run({"wtype", "-k", placingKey});
        return isCornerOfWindow(position);
    });
    if (!isThere) {
        throw std::runtime_error("The window did not move");
    }
}

bool LabwcDesktop::isCornerOfWindow(Position position) const {
    return colourAt(position) == windowColour &&
           colourAt({position.x - 1, position.y}) != windowColour &&
           colourAt({position.x, position.y - 1}) != windowColour;
}

void LabwcDesktop::pressHotKey(std::chrono::milliseconds held) const {
    run({"wtype", "-M", "logo", "-M", "shift", "-P", "y", "-s", std::to_string(held.count() + 1),
         "-p", "y", "-m", "shift", "-m", "logo"});
}

} // namespace corvane::desktop
