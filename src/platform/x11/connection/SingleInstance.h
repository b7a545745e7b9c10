#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <memory>

namespace corvane::x11 {

/// The right to be the only running Corvane of this X display, held as a selection: the server
/// grants it in one step and takes it back when its owner dies. Main thread.
class SingleInstance {
  public:
    /// Null when another instance holds the right. The connection outlives the right.
    static std::unique_ptr<SingleInstance> claim(const XcbConnection &connection);

    ~SingleInstance();

    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;

  private:
    explicit SingleInstance(const XcbConnection &connection);

    bool claimSelection() const;

    const XcbConnection &connection_;
    const xcb_window_t window_;
};

} // namespace corvane::x11
