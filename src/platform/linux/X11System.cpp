#include "platform/linux/X11System.h"

#include <utility>

namespace corvane::linux {

X11System::X11System(x11::XcbEvents &events, std::unique_ptr<x11::XcbConnection> windowConnection,
                     platform::MainQueue &mainQueue, drawing::SymbolImages &symbols,
                     qt::OwnWindows ownWindows)
    : mouseEvents_(events.connection()),
      screens_(events),
      overlayWindows_(events, screens_, symbols),
      windowList_(events.connection()),
      clientWindows_(std::move(windowConnection), mainQueue),
      applications_(clientWindows_, freedesktop::DesktopEntries::ofUser()),
      accessibility_(events.connection(), clientWindows_, applications_, std::move(ownWindows)),
      hotKeys_(events) {}

} // namespace corvane::linux
