#include "platform/linux/PanelColour.h"

#include "platform/x11/screens/SystemTray.h"

#include <QGuiApplication>
#include <QPalette>

namespace corvane::linux {

namespace {

bool isDesktop(QLatin1String name) {
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(name);
}

} // namespace

QColor panelColour(const x11::SystemTray &tray) {
    if (const auto foreground = tray.foreground()) {
        return *foreground;
    }
    if (isDesktop(QLatin1String("GNOME")) || isDesktop(QLatin1String("Unity"))) {
        return Qt::white;
    }
    if (isDesktop(QLatin1String("KDE"))) {
        return QGuiApplication::palette().color(QPalette::WindowText);
    }
    return {0x3d, 0x84, 0xf5};
}

} // namespace corvane::linux
