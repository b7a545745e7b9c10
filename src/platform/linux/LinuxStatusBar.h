#pragma once

#include "platform/StatusBar.h"
#include "platform/linux/XcbEvents.h"

namespace corvane::platform {

/// The desktop's panel.
class LinuxStatusBar : public StatusBar {
  public:
    /// `events` outlives the bar and its items.
    explicit LinuxStatusBar(x11::XcbEvents &events) : events_(events) {}

    std::unique_ptr<StatusItem>
    createItem(std::function<void(const MenuCommand &)> perform) override;

  private:
    x11::XcbEvents &events_;
};

} // namespace corvane::platform
