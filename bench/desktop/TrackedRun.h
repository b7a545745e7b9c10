#pragma once

#include "Session.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane::bench {

/// Opens the windows of a busy desktop and starts a run that follows the last of them, with the
/// pointer outside its zone so that nothing is clicked.
class TrackedRun {
  public:
    TrackedRun() : window_(openWindows()) {}

    /// `launcher` runs the program, such as a profiler with its arguments.
    void start(const std::vector<std::string> &launcher = {});

    Session &session() { return session_; }
    desktop::CorvaneProcess &corvane() { return *corvane_; }
    pid_t process() { return corvane_->process().pid(); }
    xcb_window_t window() { return session_.client().windowId(window_); }

    static constexpr desktop::Area relativeZone{40, 40, 120, 90};

  private:
    int openWindows();

    Session session_;
    int window_;
    std::unique_ptr<desktop::CorvaneProcess> corvane_;
};

} // namespace corvane::bench
