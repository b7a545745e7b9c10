#include "platform/linux/LinuxPlatform.h"

#include "platform/freedesktop/bus/SessionBus.h"
#include "platform/linux/environment/UserDirectories.h"
#include "platform/linux/environment/UserLanguages.h"
#include "platform/x11/connection/XcbEvents.h"

#include <QCoreApplication>

#include <utility>

namespace corvane::linux {

LinuxPlatform::LinuxPlatform(x11::XcbEvents &events,
                             std::unique_ptr<x11::XcbConnection> windowConnection,
                             const CommandRequest &firstCommand)
    : commandEndpoint_(mainQueue_, firstCommand),
      localisation_(userLocales()),
      mouseEvents_(events.connection()),
      screens_(events),
      overlayWindows_(events, screens_, symbols_),
      windowList_(events.connection()),
      clientWindows_(std::move(windowConnection), mainQueue_),
      applications_(clientWindows_, freedesktop::DesktopEntries::ofUser()),
      accessibility_(events.connection(), clientWindows_, applications_),
      hotKeys_(events),
      loginItem_(fileSystem_, configDirectory(),
                 QCoreApplication::applicationFilePath().toStdString()),
      statusBar_(events),
      userSession_(freedesktop::sessionBusAddress(), QDBusConnection::systemBus()) {
    events.sender().setNextClick(clock_.awaited());
}

} // namespace corvane::linux
