#pragma once

#include <memory>

namespace corvane::macos {

/// The keyboard while windows of this program use it. When the last of them is done and nothing
/// follows, the program that had it before gets it back: without a Dock icon to leave, the user
/// would have to click into that program first. Main thread.
class KeyboardFocus {
  public:
    /// Brings this program to the front until the value, and every other one, is gone.
    [[nodiscard]] std::shared_ptr<void> take();

  private:
    const std::shared_ptr<int> users_ = std::make_shared<int>(0);
};

} // namespace corvane::macos
