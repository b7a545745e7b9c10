#include "platform/linux/LinuxPlatform.h"

#include "platform/freedesktop/bus/SessionBus.h"
#include "platform/linux/environment/UserDirectories.h"
#include "platform/linux/environment/UserLanguages.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/windows/OwnWindows.h"

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

} // namespace

LinuxPlatform::LinuxPlatform(x11::XcbEvents &events,
                             std::unique_ptr<x11::XcbConnection> windowConnection,
                             const CommandRequest &firstCommand)
    : commandEndpoint_(mainQueue_, firstCommand),
      localisation_(userLocales()),
      application_(ownWindows(events.connection())),
      mouseEvents_(events.connection()),
      screens_(events),
      overlayWindows_(events, screens_, symbols_),
      windowList_(events.connection()),
      clientWindows_(std::move(windowConnection), mainQueue_),
      applications_(clientWindows_, freedesktop::DesktopEntries::ofUser()),
      accessibility_(events.connection(), clientWindows_, applications_,
                     ownWindows(events.connection())),
      hotKeys_(events),
      loginItem_(fileSystem_, configDirectory(),
                 QCoreApplication::applicationFilePath().toStdString()),
      alerts_(ownWindows(events.connection())),
      statusBar_(events),
      settingsWindows_(ownWindows(events.connection())),
      userSession_(freedesktop::sessionBusAddress(), QDBusConnection::systemBus()) {
    events.sender().setNextClick(clock_.nextClickDeadline());
}

} // namespace corvane::linux
