#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <utility>

namespace corvane::x11 {

/// The events that a connection has selected on each window. The server keeps one mask per window
/// and connection, so all users of a connection select through one `EventMasks`, which joins their
/// masks. Main thread.
class EventMasks {
    using Masks = std::map<xcb_window_t, std::multiset<std::uint32_t>>;

  public:
    /// Keeps events selected while it lives. The masks outlive it.
    class Selection {
      public:
        Selection() = default;
        Selection(EventMasks &masks, xcb_window_t window, std::uint32_t mask);
        Selection(Selection &&other) noexcept { *this = std::move(other); }
        Selection &operator=(Selection &&other) noexcept;
        Selection(const Selection &) = delete;
        Selection &operator=(const Selection &) = delete;
        ~Selection();

      private:
        EventMasks *masks_ = nullptr;
        xcb_window_t window_ = XCB_WINDOW_NONE;
        std::uint32_t mask_ = 0;
    };

    /// The connection outlives the masks.
    explicit EventMasks(const XcbConnection &connection) : connection_(connection) {}

    /// Adds the events of `mask` to those of `window` until the selection is destroyed. A window
    /// that no longer exists gives no events.
    [[nodiscard]] Selection select(xcb_window_t window, std::uint32_t mask) {
        return {*this, window, mask};
    }

  private:
    void add(xcb_window_t window, std::uint32_t mask);
    void remove(xcb_window_t window, std::uint32_t mask);
    void apply(xcb_window_t window, const std::multiset<std::uint32_t> &masks) const;

    const XcbConnection &connection_;
    Masks masks_;
};

} // namespace corvane::x11
