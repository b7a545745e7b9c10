#pragma once

#include "platform/x11/connection/EventMasks.h"
#include "platform/x11/windows/WindowAncestry.h"
#include "platform/x11/windows/WindowReader.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// The windows of programs as one connection sees them, kept up to date by the server's events, so
/// that asking for them sixty times a second costs next to nothing while nothing changes. Where the
/// connection is lost there are none. Main thread.
class WindowWatch {
  public:
    using Owners = std::vector<WindowOwner>;
    using Windows = std::vector<std::shared_ptr<const WindowInfo>>;

    /// The connection is for nothing else; it outlives the watch.
    explicit WindowWatch(const XcbConnection &connection);

    /// Takes note of what has happened since the last time; to be called before anything is asked.
    void catchUp();

    /// Watches nothing until `catchUp` is called again.
    void rest();

    /// As `ClientWindows` gives them.
    std::shared_ptr<const Owners> owners();
    std::shared_ptr<const Windows> windowsOf(std::int32_t processIdentifier);

  private:
    using Clock = std::chrono::steady_clock;

    struct Watched {
        /// Shared with whoever asked for them; null until they have been read.
        std::shared_ptr<const WindowInfo> facts{};
        bool isStale = true;
        EventMasks::Selection events{};
        /// The windows it moves and disappears with; nothing until they are known.
        std::optional<WindowAncestry> chain{};

        /// Whether it is that window or in that frame.
        bool isIn(xcb_window_t window) const { return chain && chain->contains(window); }
        /// Where the server has said it has gone; nothing while it is where it was last.
        std::optional<Point> newPlace() const;
    };

    void refreshList();
    void refresh(const std::vector<xcb_window_t> &windows);
    void readAgain(const std::vector<xcb_window_t> &stale);
    Watched &watch(xcb_window_t window);

    void handle(const xcb_generic_event_t &event);
    void rootChanged(xcb_atom_t property);
    void windowChanged(xcb_window_t window, bool isReparented);
    void windowMoved(xcb_window_t window, const xcb_generic_event_t &event);
    bool isTelling(xcb_atom_t property) const;

    const XcbConnection &connection_;
    EventMasks masks_;
    const WindowReader reader_;
    bool isListStale_ = true;
    Clock::time_point listRead_;
    /// Null while nothing is known.
    std::shared_ptr<const Owners> owners_;
    /// Those of the process that was asked for last.
    std::map<xcb_window_t, Watched> watched_;
    std::int32_t watchedProcess_ = 0;
    /// Null when something has changed.
    std::shared_ptr<const Windows> answer_;
    /// Absent while nobody asks.
    std::optional<EventMasks::Selection> rootEvents_;
};

} // namespace corvane::x11
