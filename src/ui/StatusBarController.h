#pragma once

#include "presentation/Menu.h"
#include "presentation/StatusIcon.h"
#include "support/Geometry.h"

#include <memory>

namespace corvane {

namespace platform {
class Applications;
class StatusItem;
} // namespace platform
class AppState;

/// The status item's icon and menu, computed whole from the state each time. Main thread.
class StatusBarController {
  public:
    StatusBarController(const AppState &appState, platform::Applications &applications);
    ~StatusBarController();

    /// Created by the application delegate at launch; absent until then.
    std::unique_ptr<platform::StatusItem> statusItem;

    /// Refreshes the button: icon, empty title, running dot.
    void updateIcon();

    /// Says in the item's tool tip, which is empty otherwise, when the hot key is not to be had.
    void updateToolTip(bool isHotkeyRegistered);

    /// Builds a new menu and makes it the item's menu.
    void rebuildMenu();

    /// The menu as `rebuildMenu` builds it.
    Menu menu() const;

  private:
    const AppState &appState_;
    platform::Applications &applications_;
};

} // namespace corvane
