#pragma once

#include "platform/OverlayWindows.h"

#import <Foundation/Foundation.h>

#include <memory>

@class MacOverlayView;
@class MacOverlayWindow;

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

class EscapeKey;
class KeyboardFocus;

/// Borderless windows of the windowing system. Those that clicks go through are kept for the next
/// overlay of their kind: a run shows a ring for each click, and at a hundred clicks a second a new
/// window for each would cost more than the clicks.
class OverlayWindows : public platform::OverlayWindows {
  public:
    /// The keyboard outlives it and every overlay.
    explicit OverlayWindows(KeyboardFocus &keyboard) : keyboard_(keyboard) {}

    std::unique_ptr<platform::NativeOverlay> create(const BorderlessWindow &window,
                                                    platform::OverlayEvents events) override;

  private:
    class Overlay;

    MacOverlayWindow *_Nullable makeWindow(const BorderlessWindow &description,
                                           platform::OverlayEvents events);
    MacOverlayWindow *_Nullable takeSpare(const BorderlessWindow &description);
    void retire(MacOverlayWindow *window);
    std::shared_ptr<EscapeKey> escapeKey();

    KeyboardFocus &keyboard_;
    NSMutableArray<MacOverlayWindow *> *spare_ = [NSMutableArray array];
    /// The picker that gets the Escape key: the one shown last.
    __weak MacOverlayView *_Nullable picker_ = nil;
    std::weak_ptr<EscapeKey> escapeKey_;
};

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
