#pragma once

#include "platform/Accessibility.h"
#include "platform/MainQueue.h"
#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/windows/WindowWatch.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <set>

namespace corvane::x11 {

/// The windows of other programs, for callers that read them again and again. Their events are read
/// lazily with the next call, so they never wake the process. A lost connection is replaced while
/// the server lives; meanwhile there are no windows. Main thread.
class ClientWindows {
  public:
    using Owners = WindowWatch::Owners;
    using Windows = WindowWatch::Windows;

    /// The connection serves nothing else; the queue outlives the windows.
    ClientWindows(std::unique_ptr<XcbConnection> connection, platform::MainQueue &mainQueue);

    /// The owners of the listed windows, front-most first. The same pointer again until the list
    /// changes or half a second has passed.
    std::shared_ptr<const Owners> owners();

    /// The owners of all windows directly under the root window: those of windows that their
    /// programs have hidden, which no list contains, are among them. Read anew with each call.
    Owners topLevelOwners();

    /// The ordinary windows of these processes, front-most first, minimised ones included. Watches
    /// them until other processes are named or nothing is read for a while.
    Windows windowsOf(const std::set<std::int32_t> &processes);

    /// The same as `platform::Accessibility` gives them: a window that is minimised, hidden or on
    /// another workspace has neither position nor size. Null while they cannot be read. The same
    /// pointer again while nothing changes.
    std::shared_ptr<const platform::AccessibilityWindows>
    accessibilityWindowsOf(const std::set<std::int32_t> &processes);

    /// The present connection.
    const XcbConnection &connection() const { return *connection_; }

  private:
    using Clock = std::chrono::steady_clock;

    void catchUp();
    void restUnlessRead();
    void replaceConnection();

    platform::MainQueue &mainQueue_;
    std::unique_ptr<XcbConnection> connection_;
    /// Of that connection; null only while both are replaced.
    std::unique_ptr<WindowWatch> watch_;
    /// What was read last, as the watch gives it and as `accessibilityWindowsOf` does.
    std::shared_ptr<const Windows> windows_;
    std::shared_ptr<const platform::AccessibilityWindows> accessibilityWindows_;
    Clock::time_point nextReplacement_;
    bool wasRead_ = false;
    /// Absent while the windows are not read.
    std::unique_ptr<platform::Timer> restTimer_;
};

} // namespace corvane::x11
