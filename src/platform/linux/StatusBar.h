#pragma once

#include "platform/StatusBar.h"
#include "platform/linux/StatusItem.h"

#include <utility>

namespace corvane::linux {

/// The status area of the desktop's panel. Main thread.
class StatusBar : public platform::StatusBar {
  public:
    /// `events` outlives the bar and its items.
    explicit StatusBar(x11::XcbEvents &events) : events_(events) {}

    std::unique_ptr<platform::StatusItem>
    createItem(std::function<void(const MenuCommand &)> perform) override {
        return std::make_unique<StatusItem>(events_, std::move(perform));
    }

  private:
    x11::XcbEvents &events_;
};

} // namespace corvane::linux
