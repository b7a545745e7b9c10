#import "platform/macos/click/MouseEvents.h"

#import "platform/macos/app/Activity.h"
#import "platform/macos/support/CFReference.h"
#import "platform/macos/support/Geometry.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

#include <utility>

namespace corvane::macos {

namespace {

// A click thread has no run loop that would empty an autorelease pool: each operation has its own.

CGEventType systemType(platform::MouseEventType type) {
    switch (type) {
    case platform::MouseEventType::leftMouseDown:
        return kCGEventLeftMouseDown;
    case platform::MouseEventType::leftMouseUp:
        return kCGEventLeftMouseUp;
    }
}

class MouseEvent : public platform::MouseEvent {
  public:
    explicit MouseEvent(CFReference<CGEventRef> event) : event_(std::move(event)) {}

    void setClickState(std::int64_t state) override {
        @autoreleasepool {
            CGEventSetIntegerValueField(event_.get(), kCGMouseEventClickState, state);
        }
    }

    void post() override {
        @autoreleasepool {
            CGEventPost(kCGHIDEventTap, event_.get());
        }
    }

  private:
    CFReference<CGEventRef> event_;
};

class MouseEventSource : public platform::MouseEventSource {
  public:
    /// The system makes events from a null source too.
    explicit MouseEventSource(CFReference<CGEventSourceRef> source) : source_(std::move(source)) {}

    std::unique_ptr<platform::MouseEvent> createMouseEvent(platform::MouseEventType type,
                                                           Point location) override {
        @autoreleasepool {
            CFReference event(CGEventCreateMouseEvent(source_.get(), systemType(type),
                                                      systemPoint(location), kCGMouseButtonLeft));
            if (!event) {
                return nullptr;
            }
            // The source copies the modifier keys that are down: those of the hot key, which the
            // user still holds, would make the first clicks of a run Command-Shift-clicks.
            CGEventSetFlags(event.get(), 0);
            return std::make_unique<MouseEvent>(std::move(event));
        }
    }

  private:
    CFReference<CGEventSourceRef> source_;
};

class MouseSession : public platform::MouseSession {
  public:
    /// No program can hold up the events of another here: the mouse is ready where its position
    /// can be read.
    std::optional<Point> readyPosition() override {
        @autoreleasepool {
            const CFReference event(CGEventCreate(nullptr));
            return event ? std::optional(portablePoint(CGEventGetLocation(event.get())))
                         : std::nullopt;
        }
    }

    std::unique_ptr<platform::MouseEventSource> createEventSource() override {
        @autoreleasepool {
            return std::make_unique<MouseEventSource>(
                CFReference(CGEventSourceCreate(kCGEventSourceStateHIDSystemState)));
        }
    }

  private:
    /// Keeps the timing exact, the system from sleeping, and the display on: an idle display may
    /// lock the screen, which ends the run.
    Activity activity_{NSActivityUserInitiated | NSActivityLatencyCritical |
                           NSActivityIdleDisplaySleepDisabled,
                       @"Clicking"};
};

} // namespace

std::unique_ptr<platform::MouseSession> MouseEvents::openSession() {
    return std::make_unique<MouseSession>();
}

} // namespace corvane::macos
