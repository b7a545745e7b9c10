#pragma once

#include "platform/drawing/SymbolImages.h"
#include "platform/linux/Accessibility.h"
#include "platform/linux/Applications.h"
#include "platform/linux/WindowSystem.h"
#include "platform/x11/click/MouseEvents.h"
#include "platform/x11/hotkey/HotKeys.h"
#include "platform/x11/overlay/OverlayWindows.h"
#include "platform/x11/screens/Screens.h"
#include "platform/x11/windows/ClientWindows.h"
#include "platform/x11/windows/WindowList.h"

#include <memory>

namespace corvane::linux {

/// The owners of the windows of other programs, which outlive the source.
WindowOwnerSource windowOwners(x11::ClientWindows &windows);

/// The X server as the window system.
class X11System : public WindowSystem {
  public:
    /// Other programs' windows are watched through a connection that is for nothing else. The rest
    /// outlives the system.
    X11System(x11::XcbEvents &events, std::unique_ptr<x11::XcbConnection> windowConnection,
              platform::MainQueue &mainQueue, drawing::SymbolImages &symbols,
              qt::OwnWindows ownWindows);

    Facilities facilities() override {
        return {accessibility_,  applications_, hotKeys_,   mouseEvents_,
                overlayWindows_, screens_,      windowList_};
    }

  private:
    x11::MouseEvents mouseEvents_;
    x11::Screens screens_;
    x11::OverlayWindows overlayWindows_;
    x11::WindowList windowList_;
    x11::ClientWindows clientWindows_;
    Applications applications_;
    Accessibility accessibility_;
    x11::HotKeys hotKeys_;
};

} // namespace corvane::linux
