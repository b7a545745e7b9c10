#pragma once

#include "platform/x11/connection/XcbEvents.h"

#include <QColor>

#include <functional>
#include <optional>

namespace corvane::x11 {

/// The X server's system tray (XEmbed), which a panel may offer or withdraw at any time. Main
/// thread.
class SystemTray {
  public:
    /// Calls `appeared` and `vanished` for every tray that is offered or withdrawn from now on. The
    /// events outlive the tray.
    SystemTray(XcbEvents &events, std::function<void()> appeared, std::function<void()> vanished);

    bool isPresent() const { return manager_ != XCB_WINDOW_NONE; }

    /// The colour for symbols on the tray; absent without a tray or when the tray states none.
    std::optional<QColor> foreground() const;

  private:
    void receive(const xcb_generic_event_t &event);
    void findManager();

    XcbEvents &events_;
    std::function<void()> appeared_;
    std::function<void()> vanished_;
    xcb_window_t manager_ = XCB_WINDOW_NONE;
    EventMasks::Selection announcements_;
    EventMasks::Selection end_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
