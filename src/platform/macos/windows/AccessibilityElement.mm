#import "platform/macos/windows/AccessibilityElement.h"

#include "platform/macos/logic/SilentApplications.h"

#include <chrono>
#include <utility>

namespace corvane::macos {

AccessibilityElement::AccessibilityElement(CFReference<AXUIElementRef> element,
                                           std::int32_t processIdentifier,
                                           std::shared_ptr<SilentApplications> silent)
    : element_(std::move(element)),
      processIdentifier_(processIdentifier),
      silent_(std::move(silent)) {}

CFReference<CFTypeRef> AccessibilityElement::attribute(CFStringRef name) const {
    if (!element_ || silent_->contains(processIdentifier_)) {
        return {};
    }
    const std::chrono::duration<float> timeout = silent_->timeout(processIdentifier_);
    AXUIElementSetMessagingTimeout(element_.get(), timeout.count());
    CFTypeRef value = nullptr;
    const AXError error = AXUIElementCopyAttributeValue(element_.get(), name, &value);
    CFReference owned(value);
    if (error == kAXErrorCannotComplete) {
        silent_->noteSilence(processIdentifier_);
    } else {
        silent_->noteAnswer(processIdentifier_);
    }
    return error == kAXErrorSuccess ? std::move(owned) : CFReference<CFTypeRef>();
}

AccessibilityElement AccessibilityElement::sibling(AXUIElementRef element) const {
    return {CFReference<AXUIElementRef>::sharing(element), processIdentifier_, silent_};
}

} // namespace corvane::macos
