#import "platform/macos/overlay/OverlayWindows.h"

#import "platform/macos/overlay/MacOverlayView.h"
#import "platform/macos/overlay/MacOverlayWindow.h"
#import "platform/macos/support/Geometry.h"
#import "platform/macos/support/KeptObjects.h"
#import "platform/macos/support/Text.h"
#include "support/Log.h"

#include <utility>

namespace corvane::macos {

namespace {

/// The window server refuses windows far larger than any screen, which the system raises as an
/// exception.
template <typename Place>
void tryToPlace(Place place) {
    @try {
        place();
    } @catch (NSException *exception) {
        log("Cannot place an overlay: " + utf8(exception.name));
    }
}

/// Nil, to which every message is in vain, where there can be none.
MacOverlayWindow *makeWindow(const BorderlessWindow &description, MacOverlayView *view) {
    MacOverlayWindow *window = nil;
    tryToPlace([&] {
        window = [[MacOverlayWindow alloc] initWithDescription:description contentView:view];
    });
    return window;
}

class Overlay : public platform::NativeOverlay {
  public:
    Overlay(const BorderlessWindow &window, platform::OverlayEvents events)
        : view_([[MacOverlayView alloc] initWithEvents:std::move(events) cursor:window.cursor]),
          window_(makeWindow(window, view_)) {}
    Overlay(const Overlay &) = delete;
    Overlay &operator=(const Overlay &) = delete;
    ~Overlay() override {
        [view_ disconnect];
        [window_ orderOut:nil];
        if (window_ == nil) {
            return;
        }
        if (window_.ignoresMouseEvents) {
            // No event is under way, but perhaps the end of an animation.
            CFAutorelease(CFBridgingRetain(window_));
        } else {
            keepThroughEvents(window_);
        }
    }

    void orderFront() override { [window_ orderFront:nil]; }
    void makeKeyAndOrderFront() override { [window_ makeKeyAndOrderFront:nil]; }
    void orderOut() override { [window_ orderOut:nil]; }

    Rectangle frame() const override { return portableRectangle(window_.frame); }

    void setFrame(const Rectangle &frame) override {
        tryToPlace([&] { [window_ setFrame:systemRectangle(frame) display:YES]; });
    }

    void setDrawing(const Drawing &drawing) override { [view_ setDrawing:drawing]; }

    void play(const Animation &animation, std::function<void()> completion) override {
        const std::weak_ptr<bool> alive = alive_;
        [view_ play:animation
            completion:[alive, completion = std::move(completion)] {
                if (!alive.expired()) {
                    completion();
                }
            }];
    }

  private:
    MacOverlayView *view_;
    MacOverlayWindow *window_;
    /// Expires with this overlay, for animations that end later.
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace

std::unique_ptr<platform::NativeOverlay> OverlayWindows::create(const BorderlessWindow &window,
                                                                platform::OverlayEvents events) {
    return std::make_unique<Overlay>(window, std::move(events));
}

} // namespace corvane::macos
