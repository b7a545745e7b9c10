#include "SwayDesktop.h"

#include "TextFile.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

namespace corvane::desktop {

namespace {

using nlohmann::json;

/// The place of the window of that title in a tree of sway's.
std::optional<Position> positionIn(const json &node, const std::string &title) {
    if (node.value("name", json()) == title && node.contains("pid")) {
        const json &area = node.at("rect");
        return Position{area.at("x").get<int>(), area.at("y").get<int>()};
    }
    for (const char *children : {"nodes", "floating_nodes"}) {
        for (const json &child : node.value(children, json::array())) {
            if (const auto found = positionIn(child, title)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

} // namespace

SwayDesktop::SwayDesktop(const std::string &settings) {
    startMessageBus();
    startSession(settings);
}

void SwayDesktop::startSession(const std::string &settings) {
    std::filesystem::remove(sessionVariables());
    startSway(settings);
    takeStatusIcons();
    constexpr const char *anHourInMilliseconds = "3600000";
    keyboard_ = start({"wtype", "-s", anHourInMilliseconds, "-k", "Shift_L"});
}

void SwayDesktop::startSway(const std::string &settings) {
    const auto configuration = folder() / "sway.conf";
    writeFile(configuration, R"(output HEADLESS-1 resolution 1280x800 position 0,0
output HEADLESS-2 resolution 800x600 position 1280,0
default_border none
default_floating_border none
focus_follows_mouse no
for_window [app_id=".*"] floating enable
for_window [class=".*"] floating enable
xwayland enable
exec sh -c 'echo "$WAYLAND_DISPLAY $SWAYSOCK $DISPLAY" > )" +
                                 sessionVariables().string() + "'\n" + settings + "\n");
    Environment environment = this->environment();
    environment["WLR_BACKENDS"] = "headless";
    environment["WLR_RENDERER"] = "pixman";
    environment["WLR_LIBINPUT_NO_DEVICES"] = "1";
    environment["WLR_HEADLESS_OUTPUTS"] = "2";
    std::vector<std::string> arguments{"sway", "-c", configuration};
    if (geteuid() == 0) {
        // sway refuses to be root; in a namespace of its own it is nobody to itself, and so is
        // everyone else to it: its Xwayland admits the tests as its own user. That user has to have
        // a name, because Xwayland 24 admits by name.
        arguments.insert(arguments.begin(), {"unshare", "--map-user=65534", "--map-group=65534"});
    }
    startCompositor(arguments, environment, {"WAYLAND_DISPLAY", "SWAYSOCK", "DISPLAY"});
}

void SwayDesktop::command(const std::string &text) const { run({"swaymsg", "--", text}); }

void SwayDesktop::requestPlace(const std::string &title, Position position) const {
    command("[title=\"^" + title + "$\"] move absolute position " + std::to_string(position.x) +
            " " + std::to_string(position.y));
}

std::optional<Position> SwayDesktop::positionOf(const std::string &title) const {
    return positionIn(json::parse(run({"swaymsg", "-r", "-t", "get_tree"})), title);
}

void SwayDesktop::pressHotKey(std::chrono::milliseconds held) const {
    run({"wtype", "-M", "logo", "-M", "shift", "-P", "y", "-s", std::to_string(held.count() + 1),
         "-p", "y", "-m", "shift", "-m", "logo"});
}

} // namespace corvane::desktop
