#pragma once

#include "platform/StatusBar.h"
#include "platform/x11/connection/XcbEvents.h"

namespace corvane::linux {

/// The desktop's panel.
class StatusBar : public platform::StatusBar {
  public:
    /// `events` outlives the bar and its items.
    explicit StatusBar(x11::XcbEvents &events) : events_(events) {}

    std::unique_ptr<platform::StatusItem>
    createItem(std::function<void(const MenuCommand &)> perform) override;

  private:
    x11::XcbEvents &events_;
};

} // namespace corvane::linux
