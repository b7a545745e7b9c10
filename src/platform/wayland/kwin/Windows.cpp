#include "platform/wayland/kwin/Windows.h"

#include "platform/wayland/kwin/Bus.h"
#include "platform/wayland/windows/Json.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace corvane::wayland::kwin {

using namespace Qt::StringLiterals;

namespace {

using nlohmann::json;

/// Who follows a window reads the list many times a second.
constexpr std::chrono::seconds unreadForLong{2};

/// KWin 5.27 and KWin 6 differ in names. Of a Wayland client the resource name is that of the file
/// it was started from; its application identifier is the name of its desktop file. A window that
/// is raised changes the order of all; one report covers what changes in one iteration of KWin's
/// event loop.
constexpr const char *scriptText = R"(
const isKWin6 = workspace.windowList !== undefined;
const all = () => isKWin6 ? workspace.windowList() : workspace.clientList();
const isHere = w => w.onAllDesktops || (isKWin6
    ? w.desktops.includes(workspace.currentDesktop) : w.desktop === workspace.currentDesktop);
const isOrdinary = w => w.normalWindow || w.dialog || w.utility;
const describe = w => ({
    title: w.caption, instance: w.desktopFileName || w.resourceName, class: w.resourceClass,
    pid: w.pid, x: w.frameGeometry.x, y: w.frameGeometry.y, width: w.frameGeometry.width,
    height: w.frameGeometry.height, isOnScreen: !w.minimized && isHere(w) });
const inFront = (a, b) => b.stackingOrder - a.stackingOrder;
const reportWindows = () =>
    report(JSON.stringify(all().filter(isOrdinary).sort(inFront).map(describe)));
const timer = new QTimer();
timer.singleShot = true;
timer.interval = 0;
timer.timeout.connect(reportWindows);
const changed = () => timer.start();
const follow = w => {
    for (const signal of [w.frameGeometryChanged, w.captionChanged, w.minimizedChanged,
                          w.stackingOrderChanged, isKWin6 ? w.desktopsChanged : w.desktopChanged]) {
        if (signal) signal.connect(changed);
    }
};
all().forEach(follow);
(workspace.windowAdded || workspace.clientAdded).connect(w => { follow(w); changed(); });
(workspace.windowRemoved || workspace.clientRemoved).connect(changed);
(workspace.windowActivated || workspace.clientActivated).connect(changed);
workspace.currentDesktopChanged.connect(changed);
reportWindows();
)";

Window windowOf(const json &object) {
    return {.title = textAt(object, "title"),
            .instanceName = textAt(object, "instance"),
            .className = textAt(object, "class"),
            .processIdentifier = static_cast<std::int32_t>(numberAt(object, "pid")),
            .frame = {numberAt(object, "x"), numberAt(object, "y"), numberAt(object, "width"),
                      numberAt(object, "height")},
            .isOnScreen = flagAt(object, "isOnScreen")};
}

} // namespace

std::optional<std::vector<Window>> windowsOf(std::string_view list) {
    const json objects = json::parse(list, nullptr, false);
    if (!objects.is_array()) {
        return std::nullopt;
    }
    std::vector<Window> windows;
    std::ranges::transform(objects, std::back_inserter(windows), windowOf);
    return windows;
}

Windows::Windows(QString scriptName) : scriptName_(std::move(scriptName)) {
    unreadTimer_.setSingleShot(true);
    unreadTimer_.setInterval(unreadForLong);
    QObject::connect(&unreadTimer_, &QTimer::timeout, [this] {
        script_.reset();
        windows_.reset();
    });
}

std::optional<std::vector<Window>> Windows::windows() {
    if (!sessionBus().isConnected()) {
        return std::nullopt;
    }
    if (!script_) {
        follow();
    }
    script_->deliver();
    unreadTimer_.start();
    return windows_;
}

void Windows::follow() {
    script_ = std::make_unique<Script>(
        scriptName_, QString::fromLatin1(scriptText), [this](const QVariantList &values) {
            const QByteArray list = values.value(0).toString().toUtf8();
            if (auto windows = windowsOf({list.data(), static_cast<std::size_t>(list.size())})) {
                windows_ = std::move(windows);
            }
        });
}

} // namespace corvane::wayland::kwin
