#pragma once

#include "platform/x11/connection/XcbEvents.h"

#include <QColor>

#include <functional>
#include <optional>

namespace corvane::x11 {

/// The X server's system tray, offered by a panel that comes and goes. Main thread.
class SystemTray {
  public:
    /// `appeared` and `vanished` are called for every tray that comes and goes after the start.
    /// `events` outlives the object.
    SystemTray(XcbEvents &events, std::function<void()> appeared, std::function<void()> vanished);

    bool isPresent() const { return manager_ != XCB_WINDOW_NONE; }

    /// The colour of symbols on the tray; nothing when there is none or it does not say.
    std::optional<QColor> foreground() const;

  private:
    void receive(const xcb_generic_event_t &event);
    void findManager();

    XcbEvents &events_;
    std::function<void()> appeared_;
    std::function<void()> vanished_;
    xcb_atom_t announcement_;
    xcb_window_t manager_ = XCB_WINDOW_NONE;
    EventMasks::Selection announcements_;
    EventMasks::Selection end_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
