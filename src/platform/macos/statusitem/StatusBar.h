#pragma once

#include "platform/StatusBar.h"

namespace corvane::macos {

/// The system's status bar. Menu commands arrive at the application's delegate, which passes them
/// on to the newest item's receiver.
class StatusBar : public platform::StatusBar {
  public:
    std::unique_ptr<platform::StatusItem>
    createItem(std::function<void(const MenuCommand &)> perform) override;
};

} // namespace corvane::macos
