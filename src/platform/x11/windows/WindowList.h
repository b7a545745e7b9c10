#pragma once

#include "platform/WindowList.h"
#include "platform/x11/windows/WindowReader.h"

namespace corvane::x11 {

/// The windows that the window manager lists; without one, those directly under the root window.
class WindowList : public platform::WindowList {
  public:
    /// The connection outlives the list.
    explicit WindowList(const XcbConnection &connection)
        : connection_(connection),
          reader_(connection) {}

    std::optional<std::vector<platform::WindowListEntry>> onScreenWindows() override;

  private:
    const XcbConnection &connection_;
    const WindowReader reader_;
};

} // namespace corvane::x11
