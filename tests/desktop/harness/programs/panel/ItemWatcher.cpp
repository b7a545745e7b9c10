#include "ItemWatcher.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <cstdio>

namespace corvane::desktop {

bool ItemWatcher::appear() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                              QDBusConnection::ExportAllSlots |
                                  QDBusConnection::ExportAllProperties) &&
           bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
}

void ItemWatcher::RegisterStatusNotifierItem(const QString & /*service*/) {
    item_ = message().service();
    std::puts("registered");
    std::fflush(stdout);
}

} // namespace corvane::desktop
