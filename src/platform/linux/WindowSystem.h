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
    struct Facilities {
        platform::Accessibility &accessibility;
        platform::Applications &applications;
        platform::HotKeys &hotKeys;
        platform::MouseEvents &mouseEvents;
        platform::OverlayWindows &overlayWindows;
        platform::Screens &screens;
        platform::WindowList &windowList;
    };

    virtual ~WindowSystem() = default;

    /// They live as long as the window system.
    virtual Facilities facilities() = 0;

    /// Calls `changed` whenever the user gives the right to click or takes it back; never where
    /// nobody grants it.
    virtual void whenPermissionChanges(const std::function<void()> & /*changed*/) {}
};

} // namespace corvane::linux
