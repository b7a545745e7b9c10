#import "platform/macos/overlay/OverlayWindows.h"

#import "platform/macos/app/KeyboardFocus.h"
#import "platform/macos/hotkey/EscapeKey.h"
#import "platform/macos/overlay/MacOverlayView.h"
#import "platform/macos/overlay/MacOverlayWindow.h"
#import "platform/macos/support/Geometry.h"
#import "platform/macos/support/KeptObjects.h"
#import "platform/macos/support/Text.h"
#include "support/Log.h"

#include <utility>

namespace corvane::macos {

namespace {

/// As many as a run at a hundred clicks a second shows at once, and some.
constexpr NSUInteger mostSpare = 64;

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

MacOverlayView *viewOf(MacOverlayWindow *window) {
    return static_cast<MacOverlayView *>(window.contentView);
}

} // namespace

/// Without a window, to which every message is in vain, where there can be none.
class OverlayWindows::Overlay : public platform::NativeOverlay {
  public:
    Overlay(OverlayWindows &windows, MacOverlayWindow *window)
        : windows_(windows),
          window_(window) {}
    Overlay(const Overlay &) = delete;
    Overlay &operator=(const Overlay &) = delete;
    ~Overlay() override {
        orderOut();
        if (window_ != nil) {
            windows_.retire(window_);
        }
    }

    void orderFront() override { [window_ orderFront:nil]; }

    void makeKeyAndOrderFront() override {
        if (window_.windowDescription.canBecomeKey) {
            keyboard_ = windows_.keyboard_.take();
            escapeKey_ = windows_.escapeKey();
            windows_.picker_ = viewOf(window_);
        }
        [window_ makeKeyAndOrderFront:nil];
    }

    void orderOut() override {
        [window_ orderOut:nil];
        escapeKey_.reset();
        keyboard_.reset();
    }

    Rectangle frame() const override { return portableRectangle(window_.frame); }

    void setFrame(const Rectangle &frame) override {
        tryToPlace([&] { [window_ setFrame:systemRectangle(frame) display:YES]; });
    }

    void setDrawing(const Drawing &drawing) override { [viewOf(window_) setDrawing:drawing]; }

    void play(const Animation &animation, std::function<void()> completion) override {
        const std::weak_ptr<bool> alive = alive_;
        [viewOf(window_) play:animation
                   completion:[alive, completion = std::move(completion)] {
                       if (!alive.expired()) {
                           completion();
                       }
                   }];
    }

  private:
    OverlayWindows &windows_;
    MacOverlayWindow *window_;
    std::shared_ptr<void> keyboard_;
    std::shared_ptr<EscapeKey> escapeKey_;
    /// Expires with this overlay, for animations that end later.
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

std::unique_ptr<platform::NativeOverlay> OverlayWindows::create(const BorderlessWindow &window,
                                                                platform::OverlayEvents events) {
    MacOverlayWindow *spare = takeSpare(window);
    auto overlay = std::make_unique<Overlay>(
        *this, spare != nil ? spare : makeWindow(window, std::move(events)));
    overlay->setFrame(window.frame);
    return overlay;
}

MacOverlayWindow *OverlayWindows::makeWindow(const BorderlessWindow &description,
                                             platform::OverlayEvents events) {
    MacOverlayView *view = [[MacOverlayView alloc] initWithEvents:std::move(events)
                                                           cursor:description.cursor];
    MacOverlayWindow *window = nil;
    tryToPlace([&] {
        window = [[MacOverlayWindow alloc] initWithDescription:description contentView:view];
    });
    return window;
}

MacOverlayWindow *OverlayWindows::takeSpare(const BorderlessWindow &description) {
    for (MacOverlayWindow *window in spare_) {
        BorderlessWindow kind = window.windowDescription;
        kind.frame = description.frame;
        if (kind == description) {
            [spare_ removeObject:window];
            return window;
        }
    }
    return nil;
}

void OverlayWindows::retire(MacOverlayWindow *window) {
    [viewOf(window) disconnect];
    if (window.ignoresMouseEvents && spare_.count < mostSpare) {
        [viewOf(window) reset];
        [spare_ addObject:window];
    } else {
        keepThroughEvents(window);
    }
}

std::shared_ptr<EscapeKey> OverlayWindows::escapeKey() {
    auto key = escapeKey_.lock();
    if (key == nullptr) {
        key = std::make_shared<EscapeKey>([this] { [picker_ reportKey:platform::Key::escape]; });
        escapeKey_ = key;
    }
    return key;
}

} // namespace corvane::macos
