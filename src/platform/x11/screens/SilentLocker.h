#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <QTimer>

#include <functional>

namespace corvane::x11 {

/// A locker that announces nothing, by what it does to the screen: a window of its own lies over
/// everything, no window manager has a hand in it, and pointer and keyboard are grabbed. Looks only
/// while asked to. Main thread.
class SilentLocker {
  public:
    /// Calls `changed` when the screen is found locked or no longer is. The connection is the one
    /// that the overlays are shown on, and outlives the object.
    SilentLocker(const XcbConnection &connection, std::function<void(bool isLocked)> changed);
    ~SilentLocker();

    SilentLocker(const SilentLocker &) = delete;
    SilentLocker &operator=(const SilentLocker &) = delete;

    /// Looks several times a second from now on, or not any more; where the screen is locked by
    /// then, until it is not.
    void watch(bool isWatching);

  private:
    void look();
    bool isInputTaken() const;
    bool isScreenCovered() const;
    bool isOwn(xcb_window_t window) const;
    bool holdsManagedWindow(xcb_window_t window, int depth) const;

    const XcbConnection &connection_;
    const std::function<void(bool isLocked)> changed_;
    const xcb_atom_t managedState_;
    const xcb_window_t neverShown_;
    QTimer timer_;
    bool isWatching_ = false;
    bool isLocked_ = false;
};

} // namespace corvane::x11
