#pragma once

#include <Carbon/Carbon.h>

#include <functional>

namespace corvane::macos {

/// The Escape key, whichever program is in front, for as long as it exists: the system may refuse
/// to bring this program to the front, and then a picker has no keyboard. Main thread.
class EscapeKey {
  public:
    explicit EscapeKey(std::function<void()> pressed);
    EscapeKey(const EscapeKey &) = delete;
    EscapeKey &operator=(const EscapeKey &) = delete;
    ~EscapeKey();

  private:
    static OSStatus handle(EventHandlerCallRef next, EventRef event, void *escapeKey);

    const std::function<void()> pressed_;
    EventHandlerRef handler_ = nullptr;
    EventHotKeyRef hotKey_ = nullptr;
};

} // namespace corvane::macos
