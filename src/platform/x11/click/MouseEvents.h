#pragma once

#include "platform/MouseEvents.h"
#include "platform/x11/connection/XcbConnection.h"

namespace corvane::x11 {

/// The pointer of the X server, pressed through its test extension.
class MouseEvents : public platform::MouseEvents {
  public:
    /// Sessions connect to the same server; the connection outlives this.
    explicit MouseEvents(const XcbConnection &connection) : connection_(connection) {}

    std::unique_ptr<platform::MouseSession> openSession() override;

  private:
    const XcbConnection &connection_;
};

} // namespace corvane::x11
