#pragma once

#include "platform/MainQueue.h"
#include "platform/linux/EventMasks.h"
#include "platform/linux/WindowReader.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace corvane::x11 {

/// The windows of programs, kept up to date by the server's events, so that asking for them sixty
/// times a second costs next to nothing while nothing changes. Nobody is woken by those events:
/// they wait until somebody asks. Main thread.
class ClientWindows {
  public:
    using Owners = std::vector<WindowOwner>;
    using Windows = std::vector<std::shared_ptr<const WindowFacts>>;

    /// The connection is for nothing else; it and the queue outlive the windows.
    ClientWindows(const XcbConnection &connection, platform::MainQueue &mainQueue);

    /// Whose windows there are, front-most first. The same answer again for half a second at most,
    /// as long as nothing has changed.
    std::shared_ptr<const Owners> owners();

    /// The windows of a process that users see as windows, front-most first, minimised ones
    /// included. Watches them until another process is asked for or nobody has asked for a while.
    /// The same answer again as long as nothing has changed.
    std::shared_ptr<const Windows> windowsOf(std::int32_t processIdentifier);

    const XcbConnection &connection() const { return connection_; }

  private:
    using Clock = std::chrono::steady_clock;

    struct Watched {
        /// Shared with whoever asked for them; null until they have been read.
        std::shared_ptr<const WindowFacts> facts{};
        bool isStale = true;
        /// The windows it moves and disappears with; nothing until they are known.
        std::optional<std::vector<xcb_window_t>> frames{};
        EventMasks::Selection events{};
        std::vector<EventMasks::Selection> frameEvents{};

        bool isIn(xcb_window_t frame) const;
    };

    /// Takes note of what has happened since somebody asked last.
    void catchUp();
    void restUnlessAsked();
    void refreshList();
    void refresh(const std::vector<xcb_window_t> &windows);
    Watched &watch(xcb_window_t window);
    void watchFrames(xcb_window_t window, Watched &watched);

    void handle(const xcb_generic_event_t &event);
    void rootChanged(xcb_atom_t property);
    void windowChanged(xcb_window_t window, bool isReparented);
    bool isTelling(xcb_atom_t property) const;

    const XcbConnection &connection_;
    platform::MainQueue &mainQueue_;
    EventMasks masks_;
    const WindowReader reader_;
    bool wasAsked_ = false;
    std::unique_ptr<platform::Timer> restTimer_;
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
