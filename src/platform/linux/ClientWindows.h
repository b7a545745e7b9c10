#pragma once

#include "platform/linux/WindowReader.h"
#include "platform/linux/XcbEvents.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// The windows of programs, kept up to date by the server's events, so that asking for them sixty
/// times a second costs next to nothing while nothing changes. Main thread.
class ClientWindows {
  public:
    /// The events outlive the windows.
    explicit ClientWindows(XcbEvents &events);

    /// Whose windows there are, front-most first.
    const std::vector<WindowOwner> &owners();

    /// The windows of a process that users see as windows, front-most first, minimised ones
    /// included. Watches them for a while.
    std::vector<std::shared_ptr<const WindowFacts>> windowsOf(std::int32_t processIdentifier);

    const XcbConnection &connection() const { return events_.connection(); }

  private:
    using Clock = std::chrono::steady_clock;

    struct Watched {
        /// Shared with whoever asked for them; null until they have been read.
        std::shared_ptr<const WindowFacts> facts{};
        bool isStale = true;
        Clock::time_point lastAsked{};
        /// The windows it moves and disappears with; nothing until they are known.
        std::optional<std::vector<xcb_window_t>> frames{};
        EventMasks::Selection events{};
        std::vector<EventMasks::Selection> frameEvents{};

        bool isIn(xcb_window_t frame) const;
    };

    void refreshList();
    void refresh(const std::vector<xcb_window_t> &windows);
    Watched &watch(xcb_window_t window);
    void watchFrames(xcb_window_t window, Watched &watched);

    void handle(const xcb_generic_event_t &event);
    void rootChanged(xcb_atom_t property);
    void windowChanged(xcb_window_t window, bool isReparented);
    bool isTelling(xcb_atom_t property) const;
    void forgetUnasked();

    XcbEvents &events_;
    const WindowReader reader_;
    bool isListStale_ = true;
    Clock::time_point listRead_;
    std::vector<WindowOwner> owners_;
    std::map<xcb_window_t, Watched> watched_;
    EventMasks::Selection rootEvents_;
    XcbEvents::Subscription subscription_;
};

} // namespace corvane::x11
