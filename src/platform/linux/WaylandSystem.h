#pragma once

#include "platform/drawing/SymbolImages.h"
#include "platform/linux/Accessibility.h"
#include "platform/linux/Applications.h"
#include "platform/linux/WindowSystem.h"
#include "platform/wayland/click/MouseEvents.h"
#include "platform/wayland/connection/Events.h"
#include "platform/wayland/kwin/Cursor.h"
#include "platform/wayland/overlay/OverlayWindows.h"
#include "platform/wayland/screens/Screens.h"
#include "platform/wayland/windows/WindowList.h"

#include <memory>

namespace corvane::linux {

/// A Wayland compositor as the window system. The program's ordinary windows are X clients.
class WaylandSystem : public WindowSystem {
  public:
    /// Everything given outlives the system.
    WaylandSystem(wayland::Events &events, drawing::SymbolImages &symbols,
                  qt::OwnWindows ownWindows);

    Facilities facilities() override {
        return {accessibility_,  applications_, *hotKeys_,  mouseEvents_,
                overlayWindows_, screens_,      windowList_};
    }

  private:
    /// Null where the compositor is not KWin.
    const std::unique_ptr<wayland::kwin::Cursor> kwinCursor_;
    wayland::MouseEvents mouseEvents_;
    wayland::Screens screens_;
    wayland::OverlayWindows overlayWindows_;
    const std::unique_ptr<wayland::Windows> windows_;
    wayland::WindowList windowList_;
    Applications applications_;
    Accessibility accessibility_;
    const std::unique_ptr<platform::HotKeys> hotKeys_;
};

} // namespace corvane::linux
