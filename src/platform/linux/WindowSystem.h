#pragma once

#include "platform/Accessibility.h"
#include "platform/Applications.h"
#include "platform/HotKeys.h"
#include "platform/MouseEvents.h"
#include "platform/OverlayWindows.h"
#include "platform/Screens.h"
#include "platform/WindowList.h"

#include <functional>

namespace corvane::linux {

/// The facilities that the window system provides, of one kind throughout. Main thread.
class WindowSystem {
  public:
    virtual ~WindowSystem() = default;

    virtual platform::Accessibility &accessibility() = 0;
    virtual platform::Applications &applications() = 0;
    virtual platform::HotKeys &hotKeys() = 0;
    virtual platform::MouseEvents &mouseEvents() = 0;
    virtual platform::OverlayWindows &overlayWindows() = 0;
    virtual platform::Screens &screens() = 0;
    virtual platform::WindowList &windowList() = 0;

    /// Calls `lost` whenever the right to click is taken back; never where nobody grants it.
    virtual void whenClicksEnd(std::function<void()> /*lost*/) {}
};

} // namespace corvane::linux
