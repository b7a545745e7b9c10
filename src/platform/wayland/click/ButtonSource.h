#pragma once

#include "platform/MouseEvents.h"

#include <functional>
#include <utility>

namespace corvane::wayland {

/// Events that press or release the left button wherever the cursor is: the program never moves it.
class ButtonSource : public platform::MouseEventSource {
  public:
    using SetButton = std::function<void(bool isPressed)>;

    explicit ButtonSource(SetButton setButton) : setButton_(std::move(setButton)) {}

    std::unique_ptr<platform::MouseEvent> createMouseEvent(platform::MouseEventType type,
                                                           Point location) override;

  private:
    const SetButton setButton_;
};

} // namespace corvane::wayland
