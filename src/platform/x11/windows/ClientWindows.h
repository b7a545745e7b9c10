#pragma once

#include "platform/MainQueue.h"
#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/windows/WindowWatch.h"

#include <chrono>
#include <cstdint>
#include <memory>

namespace corvane::x11 {

/// The windows of programs, for whoever asks again and again. Nobody is woken by what happens to
/// them: it waits until somebody asks. A connection that is lost while the server lives is
/// replaced; until it is there are no windows. Main thread.
class ClientWindows {
  public:
    using Owners = WindowWatch::Owners;
    using Windows = WindowWatch::Windows;

    /// The connection is for nothing else; the queue outlives the windows.
    ClientWindows(std::unique_ptr<XcbConnection> connection, platform::MainQueue &mainQueue);

    /// Whose windows there are, front-most first. The same answer again for half a second at most,
    /// as long as nothing has changed.
    std::shared_ptr<const Owners> owners();

    /// The windows of a process that users see as windows, front-most first, minimised ones
    /// included. Watches them until another process is asked for or nobody has asked for a while.
    /// The same answer again as long as nothing has changed.
    std::shared_ptr<const Windows> windowsOf(std::int32_t processIdentifier);

    /// The present one.
    const XcbConnection &connection() const { return *connection_; }

  private:
    using Clock = std::chrono::steady_clock;

    void catchUp();
    void restUnlessAsked();
    void replaceConnection();

    platform::MainQueue &mainQueue_;
    std::unique_ptr<XcbConnection> connection_;
    /// Through that connection; never absent but while both are replaced.
    std::unique_ptr<WindowWatch> watch_;
    Clock::time_point nextReplacement_;
    bool wasAsked_ = false;
    /// Absent while nobody asks.
    std::unique_ptr<platform::Timer> restTimer_;
};

} // namespace corvane::x11
