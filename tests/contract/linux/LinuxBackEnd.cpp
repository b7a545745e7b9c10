#include "LinuxBackEnd.h"

#include "EventLoop.h"
#include "RecorderBackEnd.h"
#include "WaylandBackEnd.h"
#include "actors/Pointer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QtGlobal>

namespace corvane::contract {

bool LinuxBackEnd::turnUntil(const std::function<bool()> &condition) {
    return contract::turnUntil(condition);
}

/// The platform subscribes in the background, so the signal is sent until it has arrived.
void LinuxBackEnd::announceLock(bool isLocked) {
    auto signal = QDBusMessage::createSignal(QStringLiteral("/ScreenSaver"),
                                             QStringLiteral("org.freedesktop.ScreenSaver"),
                                             QStringLiteral("ActiveChanged"));
    signal << isLocked;
    const auto expected =
        isLocked ? platform::SessionState::locked : platform::SessionState::active;
    turnUntil([&] {
        QDBusConnection::sessionBus().send(signal);
        return platform_.userSession().state() == expected;
    });
}

void LinuxBackEnd::click(Point point) {
    // The server has the overlay before the click, and has sent the events when the click returns.
    events_.connection().synchronise();
    const desktop::DisplayConnection user(qEnvironmentVariable("DISPLAY").toStdString());
    const desktop::Pointer pointer(user);
    const auto screens = platform_.screens().screens();
    const Point position = flipped(point, screens.front().frame.height);
    pointer.moveTo({static_cast<int>(position.x), static_cast<int>(position.y)});
    pointer.click();
}

std::vector<BackEndKind> backEndKinds() {
    return {{.name = "Recorder", .make = RecorderBackEnd::make},
            {.name = "Linux", .make = LinuxBackEnd::make}};
}

std::vector<BackEndKind> windowSystemKinds() {
    auto kinds = backEndKinds();
    kinds.push_back({.name = "Sway", .make = WaylandBackEnd::onSway});
    return kinds;
}

} // namespace corvane::contract
