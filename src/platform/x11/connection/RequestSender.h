#pragma once

#include "platform/linux/timing/Clock.h"
#include "platform/linux/timing/ExactTimer.h"
#include "platform/linux/timing/NextClickDeadline.h"
#include "platform/x11/connection/XcbConnection.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace corvane::x11 {

/// Sends the requests that are left in a connection's buffer before the event loop sleeps. The
/// server carries out one client's requests at a time, and where no compositor runs, the pictures
/// of many ripples keep it busy for milliseconds: drawing waits for a press or a release that is
/// near. Main thread.
class RequestSender {
  public:
    /// The connection outlives the sender.
    explicit RequestSender(const XcbConnection &connection) : connection_(connection) {}

    /// Has drawing wait for the presses and releases that this moment tells of.
    void giveWayTo(std::shared_ptr<const linux::NextClickDeadline> click) {
        click_ = std::move(click);
    }

    /// Says that what is put into the buffer now is drawing.
    void draws();

    /// `moment`, or where a press or release is to come shortly after it, when that has been sent.
    platform::Instant clearOfClick(platform::Instant moment) const;

    /// Calls `prepare` each time before something is sent; nothing else is called then any more.
    void beforeSending(std::function<void()> prepare) { prepare_ = std::move(prepare); }

    void send();

  private:
    bool isPaused();

    const XcbConnection &connection_;
    const linux::Clock clock_{};
    std::shared_ptr<const linux::NextClickDeadline> click_ =
        std::make_shared<linux::NextClickDeadline>();
    std::function<void()> prepare_ = [] {};
    /// When the drawing that is in the buffer was begun.
    std::optional<platform::Instant> drawn_;
    /// Turns the event loop when a pause is over.
    linux::ExactTimer pause_{[] {}};
};

} // namespace corvane::x11
