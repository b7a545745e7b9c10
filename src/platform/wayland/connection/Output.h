#pragma once

#include "platform/wayland/connection/Handle.h"
#include "support/Geometry.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace corvane::wayland {

/// A monitor of the compositor's layout.
class Output {
  public:
    /// `name` is the registry's number. Calls `changed` when the place of the monitor has become
    /// known or has changed.
    Output(std::uint32_t name, Handle<wl_output> output, std::function<void()> changed);

    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;
    ~Output() = default;

    std::uint32_t name() const { return name_; }
    wl_output *get() const { return output_.get(); }

    /// Requests its position and follows changes of it from then on.
    void follow(zxdg_output_manager_v1 *manager);
    bool isFollowed() const { return place_ != nullptr; }

    /// Global display space, in logical pixels; absent until the compositor has reported it.
    const std::optional<Rectangle> &frame() const { return frame_; }

  private:
    void apply();

    const std::uint32_t name_;
    const std::function<void()> changed_;
    const Handle<wl_output> output_;
    Handle<zxdg_output_v1> place_;
    /// What the compositor has sent so far, complete with its event `done`.
    Rectangle pending_{};
    std::optional<Rectangle> frame_;
};

} // namespace corvane::wayland
