#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <QColor>
#include <xcb/xcb.h>

#include <memory>
#include <optional>

namespace corvane::contract {

/// The X server's system tray as a panel offers it: owns the selection, takes in the icons that ask
/// for it, and shows them at the top left of the screen.
class FakeTray {
  public:
    /// The foreground colour it publishes; none where it publishes no colours.
    explicit FakeTray(std::optional<QColor> foreground = std::nullopt);
    ~FakeTray();

    FakeTray(const FakeTray &) = delete;
    FakeTray &operator=(const FakeTray &) = delete;

    /// Handles the requests of icons so far; how many icons it has embedded and not lost again.
    int icons();

    /// Where an icon is on the screen.
    static constexpr int iconMiddle = 12;

  private:
    void answer(const xcb_generic_event_t &event);
    void takeIn(xcb_window_t icon);

    std::unique_ptr<x11::XcbConnection> connection_;
    xcb_window_t window_;
    int icons_ = 0;
};

} // namespace corvane::contract
