#pragma once

#include "platform/Accessibility.h"

#include <optional>
#include <string>
#include <utility>

namespace corvane::linux {

/// A window of another program as it was when it was read. One that is minimised, hidden or on
/// another workspace has neither a position nor a size.
class OtherWindow : public platform::AccessibilityWindow {
  public:
    /// `frame` is in global display space.
    OtherWindow(std::optional<std::string> title, const Rectangle &frame, bool isOnScreen)
        : title_(std::move(title)),
          frame_(isOnScreen ? std::optional(frame) : std::nullopt) {}

    std::optional<std::string> title() override { return title_; }
    std::optional<Point> position() override {
        return frame_ ? std::optional(Point{frame_->x, frame_->y}) : std::nullopt;
    }
    std::optional<Size> size() override {
        return frame_ ? std::optional(frame_->size()) : std::nullopt;
    }

  private:
    const std::optional<std::string> title_;
    const std::optional<Rectangle> frame_;
};

} // namespace corvane::linux
