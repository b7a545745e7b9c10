#pragma once

#include "support/Geometry.h"

#include <mutex>
#include <optional>

namespace corvane {

/// The zone of a run as it moves: anchor tracking writes it, the click loop reads it. Any thread.
class DynamicZoneRect {
  public:
    /// Global display space.
    explicit DynamicZoneRect(const Rectangle &rect) : rect_(rect) {}

    std::optional<Rectangle> rect() const {
        const std::lock_guard lock(lock_);
        return rect_;
    }

    void setRect(const Rectangle &rect) {
        const std::lock_guard lock(lock_);
        rect_ = rect;
    }

  private:
    mutable std::mutex lock_;
    std::optional<Rectangle> rect_;
};

} // namespace corvane
