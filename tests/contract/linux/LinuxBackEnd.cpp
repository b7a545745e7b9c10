#include "LinuxBackEnd.h"

#include "EventLoop.h"
#include "RecorderBackEnd.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace corvane::contract {

bool LinuxBackEnd::turnUntil(const std::function<bool()> &condition) {
    return contract::turnUntil(condition);
}

void LinuxBackEnd::announceLock(bool isLocked) {
    auto signal = QDBusMessage::createSignal(QStringLiteral("/ScreenSaver"),
                                             QStringLiteral("org.freedesktop.ScreenSaver"),
                                             QStringLiteral("ActiveChanged"));
    signal << isLocked;
    QDBusConnection::sessionBus().send(signal);
}

std::vector<BackEndKind> backEndKinds() {
    return {{.name = "Recorder", .make = RecorderBackEnd::make},
            {.name = "Linux", .make = LinuxBackEnd::make}};
}

} // namespace corvane::contract
