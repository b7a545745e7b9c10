#import "platform/macos/MacAccessibility.h"

#import "platform/macos/CFReference.h"
#import "platform/macos/Geometry.h"
#import "platform/macos/Text.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

#include <utility>

#if !__has_feature(objc_arc)
#error "Compile this file with -fobjc-arc"
#endif

namespace corvane::macos {

namespace {

/// Seconds. These calls are made on the main thread, many times a second while a zone is tracked:
/// an application that hangs must not take this program with it.
constexpr float messagingTimeout = 0.25F;

/// Null when the element does not answer in time or has no such attribute.
CFReference<CFTypeRef> attribute(AXUIElementRef element, CFStringRef name) {
    CFTypeRef value = nullptr;
    const AXError error = AXUIElementCopyAttributeValue(element, name, &value);
    CFReference owned(value);
    return error == kAXErrorSuccess ? std::move(owned) : CFReference<CFTypeRef>();
}

template <typename Value>
std::optional<Value> unpacked(const CFReference<CFTypeRef> &value, AXValueType type) {
    Value content{};
    if (!value || CFGetTypeID(value.get()) != AXValueGetTypeID() ||
        !AXValueGetValue(static_cast<AXValueRef>(value.get()), type, &content)) {
        return std::nullopt;
    }
    return content;
}

class MacAccessibilityWindow : public platform::AccessibilityWindow {
  public:
    explicit MacAccessibilityWindow(AXUIElementRef element)
        : element_(CFReference<AXUIElementRef>::sharing(element)) {
        AXUIElementSetMessagingTimeout(element, messagingTimeout);
    }

    std::optional<std::string> title() override {
        const auto value = attribute(element_.get(), kAXTitleAttribute);
        if (!value || CFGetTypeID(value.get()) != CFStringGetTypeID()) {
            return std::nullopt;
        }
        return utf8((__bridge NSString *)value.get());
    }

    std::optional<Point> position() override {
        const auto value = attribute(element_.get(), kAXPositionAttribute);
        const auto point = unpacked<CGPoint>(value, kAXValueTypeCGPoint);
        return point ? std::optional(portablePoint(*point)) : std::nullopt;
    }

    std::optional<Size> size() override {
        const auto value = attribute(element_.get(), kAXSizeAttribute);
        const auto size = unpacked<CGSize>(value, kAXValueTypeCGSize);
        return size ? std::optional(Size{size->width, size->height}) : std::nullopt;
    }

  private:
    CFReference<AXUIElementRef> element_;
};

} // namespace

bool MacAccessibility::isProcessTrusted() { return AXIsProcessTrusted(); }

bool MacAccessibility::isProcessTrustedWithPrompt() {
    NSDictionary *options = @{(__bridge NSString *)kAXTrustedCheckOptionPrompt : @YES};
    return AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options);
}

std::optional<std::vector<std::unique_ptr<platform::AccessibilityWindow>>>
MacAccessibility::windows(std::int32_t processIdentifier) {
    const CFReference application(AXUIElementCreateApplication(processIdentifier));
    if (!application) {
        return std::nullopt;
    }
    AXUIElementSetMessagingTimeout(application.get(), messagingTimeout);
    const auto list = attribute(application.get(), kAXWindowsAttribute);
    if (!list || CFGetTypeID(list.get()) != CFArrayGetTypeID()) {
        return std::nullopt;
    }
    std::vector<std::unique_ptr<platform::AccessibilityWindow>> windows;
    for (id window in (__bridge NSArray *)list.get()) {
        const auto element = (__bridge CFTypeRef)window;
        if (CFGetTypeID(element) != AXUIElementGetTypeID()) {
            return std::nullopt;
        }
        windows.push_back(
            std::make_unique<MacAccessibilityWindow>(static_cast<AXUIElementRef>(element)));
    }
    return windows;
}

} // namespace corvane::macos
