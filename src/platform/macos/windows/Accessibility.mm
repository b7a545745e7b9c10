#import "platform/macos/windows/Accessibility.h"

#include "platform/macos/logic/SilentApplications.h"
#import "platform/macos/support/Geometry.h"
#import "platform/macos/support/Text.h"
#import "platform/macos/windows/AccessibilityElement.h"

#import <AppKit/AppKit.h>
#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

#include <utility>

namespace corvane::macos {

namespace {

template <typename Value>
std::optional<Value> unpacked(const CFReference<CFTypeRef> &value, AXValueType type) {
    Value content{};
    if (!value || CFGetTypeID(value.get()) != AXValueGetTypeID() ||
        !AXValueGetValue(static_cast<AXValueRef>(value.get()), type, &content)) {
        return std::nullopt;
    }
    return content;
}

class AccessibilityWindow : public platform::AccessibilityWindow {
  public:
    explicit AccessibilityWindow(AccessibilityElement element) : element_(std::move(element)) {}

    std::optional<std::string> title() override {
        const auto value = element_.attribute(kAXTitleAttribute);
        if (!value || CFGetTypeID(value.get()) != CFStringGetTypeID()) {
            return std::nullopt;
        }
        return utf8((__bridge NSString *)value.get());
    }

    std::optional<Point> position() override {
        const auto value = element_.attribute(kAXPositionAttribute);
        const auto point = unpacked<CGPoint>(value, kAXValueTypeCGPoint);
        return point ? std::optional(portablePoint(*point)) : std::nullopt;
    }

    std::optional<Size> size() override {
        const auto value = element_.attribute(kAXSizeAttribute);
        const auto size = unpacked<CGSize>(value, kAXValueTypeCGSize);
        return size ? std::optional(Size{size->width, size->height}) : std::nullopt;
    }

  private:
    AccessibilityElement element_;
};

} // namespace

Accessibility::Accessibility(const platform::ContinuousClock &clock)
    : silent_(std::make_shared<SilentApplications>(clock)) {}

bool Accessibility::isProcessTrusted() { return AXIsProcessTrusted(); }

bool Accessibility::isProcessTrustedWithPrompt() {
    NSDictionary *options = @{(__bridge NSString *)kAXTrustedCheckOptionPrompt : @YES};
    return AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options);
}

void Accessibility::openSettings() {
    NSString *const address =
        @"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";
    if (NSURL *url = [NSURL URLWithString:address]) {
        [NSWorkspace.sharedWorkspace openURL:url];
    }
}

std::shared_ptr<const platform::AccessibilityWindows>
Accessibility::windows(std::int32_t processIdentifier) {
    const AccessibilityElement application(
        CFReference(AXUIElementCreateApplication(processIdentifier)), processIdentifier, silent_);
    const auto list = application.attribute(kAXWindowsAttribute);
    if (!list || CFGetTypeID(list.get()) != CFArrayGetTypeID()) {
        return nullptr;
    }
    auto windows = std::make_shared<platform::AccessibilityWindows>();
    for (id window in (__bridge NSArray *)list.get()) {
        const auto element = (__bridge CFTypeRef)window;
        if (CFGetTypeID(element) != AXUIElementGetTypeID()) {
            return nullptr;
        }
        windows->push_back(std::make_unique<AccessibilityWindow>(
            application.sibling(static_cast<AXUIElementRef>(element))));
    }
    return windows;
}

} // namespace corvane::macos
