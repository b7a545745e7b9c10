#pragma once

#include "platform/x11/connection/EventMasks.h"
#include "platform/x11/windows/WindowAncestry.h"
#include "platform/x11/windows/WindowReader.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace corvane::x11 {

/// The windows of other programs as one connection sees them, kept up to date by the server's
/// events: reading them sixty times a second sends no request while nothing changes. Empty when the
/// connection is lost. Main thread.
class WindowWatch {
  public:
    using Owners = std::vector<WindowOwner>;
    using Windows = std::vector<std::shared_ptr<const WindowInfo>>;

    /// The connection serves nothing else and outlives the watch.
    explicit WindowWatch(const XcbConnection &connection);

    /// Processes the events since the last call; to be called before anything is read.
    void catchUp();

    /// Stops watching until `catchUp` is called again.
    void rest();

    /// As `ClientWindows` gives them.
    std::shared_ptr<const Owners> owners();
    Owners topLevelOwners() const;
    /// The same pointer again until one of the windows or the list changes, or half a second has
    /// passed.
    std::shared_ptr<const Windows> windowsOf(const std::set<std::int32_t> &processes);

  private:
    using Clock = std::chrono::steady_clock;

    struct Watched {
        /// Shared with callers; null until it has been read.
        std::shared_ptr<const WindowInfo> info{};
        bool isStale = true;
        EventMasks::Selection events{};
        /// Absent until it has been read, and after the window was put into another.
        std::optional<WindowAncestry> ancestry{};

        /// Whether `window` is the watched window or one around it.
        bool isIn(xcb_window_t window) const { return ancestry && ancestry->contains(window); }
    };

    void refreshList();
    void refresh(const std::vector<xcb_window_t> &windows);
    void readAgain(const std::vector<xcb_window_t> &stale);
    Watched &watch(xcb_window_t window);
    void markStale(Watched &watched);

    void handle(const xcb_generic_event_t &event);
    void rootChanged(xcb_atom_t property);
    void windowChanged(xcb_window_t window, bool isReparented);
    void windowMoved(xcb_window_t window, const xcb_generic_event_t &event);
    bool isOfInterest(xcb_atom_t property) const;

    const XcbConnection &connection_;
    EventMasks masks_;
    const WindowReader reader_;
    bool isListStale_ = true;
    Clock::time_point listRead_;
    /// Null until they have been read.
    std::shared_ptr<const Owners> owners_;
    /// The windows of `watchedProcesses_`.
    std::map<xcb_window_t, Watched> watched_;
    std::set<std::int32_t> watchedProcesses_;
    /// Null after a change. Without it a pass over a window of a process with 40 windows takes
    /// 51,000 instructions instead of 20,000.
    std::shared_ptr<const Windows> windows_;
    /// Absent while the windows are not read.
    std::optional<EventMasks::Selection> rootEvents_;
};

} // namespace corvane::x11
