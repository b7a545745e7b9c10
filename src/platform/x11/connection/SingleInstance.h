#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <memory>

namespace corvane::x11 {

/// The right to be the one instance of the program on this display. Main thread.
class SingleInstance {
  public:
    /// Null when another instance has the right. The connection outlives it.
    static std::unique_ptr<SingleInstance> claim(const XcbConnection &connection);

    ~SingleInstance();

    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;

  private:
    explicit SingleInstance(const XcbConnection &connection);

    bool claimSelection() const;

    const XcbConnection &connection_;
    const xcb_atom_t selection_;
    const xcb_window_t window_;
};

} // namespace corvane::x11
