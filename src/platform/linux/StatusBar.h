#pragma once

#include "platform/StatusBar.h"
#include "platform/x11/connection/XcbEvents.h"

namespace corvane::x11 {

/// The desktop's panel.
class LinuxStatusBar : public platform::StatusBar {
  public:
    /// `events` outlives the bar and its items.
    explicit LinuxStatusBar(XcbEvents &events) : events_(events) {}

    std::unique_ptr<platform::StatusItem>
    createItem(std::function<void(const MenuCommand &)> perform) override;

  private:
    XcbEvents &events_;
};

} // namespace corvane::x11
