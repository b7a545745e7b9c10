#include "platform/linux/LinuxPlatform.h"

#include "platform/freedesktop/bus/SessionBus.h"
#include "platform/linux/PortalSystem.h"
#include "platform/linux/WaylandSystem.h"
#include "platform/linux/X11System.h"
#include "platform/linux/environment/UserDirectories.h"
#include "platform/linux/environment/UserLanguages.h"
#include "platform/x11/connection/QtConnection.h"
#include "platform/x11/connection/ServerAbilities.h"
#include "platform/x11/connection/XcbEvents.h"

#include <QCoreApplication>

#include <utility>

namespace corvane::linux {

namespace {

/// The connection outlives the result.
qt::OwnWindows ownWindows(const x11::XcbConnection &connection) {
    const auto idOf = [](WId window) { return static_cast<xcb_window_t>(window); };
    const x11::Atoms &atoms = connection.atoms();
    return {.activate = [=, &atoms](WId window) { x11::activate(atoms, idOf(window)); },
            .showOnEveryWorkspace =
                [=, &atoms](WId window) { x11::showOnEveryWorkspace(atoms, idOf(window)); }};
}

std::unique_ptr<WindowSystem> windowSystem(x11::XcbEvents &events,
                                           std::unique_ptr<x11::XcbConnection> windowConnection,
                                           wayland::Events *compositor,
                                           platform::MainQueue &mainQueue,
                                           drawing::SymbolImages &symbols) {
    qt::OwnWindows own = ownWindows(events.connection());
    if (compositor != nullptr) {
        return std::make_unique<WaylandSystem>(*compositor, symbols, std::move(own));
    }
    if (x11::isInsideWayland(events.connection())) {
        if (auto portal = PortalSystem::connect(events, symbols, own)) {
            return portal;
        }
    }
    return std::make_unique<X11System>(events, std::move(windowConnection), mainQueue, symbols,
                                       std::move(own));
}

} // namespace

LinuxPlatform::LinuxPlatform(x11::XcbEvents &events,
                             std::unique_ptr<x11::XcbConnection> windowConnection,
                             wayland::Events *compositor, const CommandRequest &firstCommand)
    : commandEndpoint_(mainQueue_, firstCommand),
      localisation_(userLocales()),
      application_(ownWindows(events.connection())),
      windowSystem_(
          windowSystem(events, std::move(windowConnection), compositor, mainQueue_, symbols_)),
      facilities_(windowSystem_->facilities()),
      loginItem_(fileSystem_, configDirectory(),
                 QCoreApplication::applicationFilePath().toStdString()),
      alerts_(ownWindows(events.connection())),
      statusBar_(events),
      settingsWindows_(ownWindows(events.connection())),
      userSession_(freedesktop::sessionBusAddress(), freedesktop::systemBusAddress()) {
    events.sender().setNextClick(clock_.nextClickDeadline());
}

} // namespace corvane::linux
