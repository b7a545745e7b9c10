#import "platform/macos/windows/AccessibilityElement.h"

#import "platform/macos/support/Clock.h"

#include <utility>

namespace corvane::macos {

namespace {

/// Seconds. Messages are sent on the main thread, many times a second while a zone is tracked.
constexpr float messagingTimeout = 0.25F;

constexpr std::chrono::seconds rest{1};

} // namespace

bool SilentApplications::contains(std::int32_t processIdentifier) const {
    const auto found = applications_.find(processIdentifier);
    return found != applications_.end() && Clock().now() < found->second;
}

void SilentApplications::add(std::int32_t processIdentifier) {
    const platform::Instant now = Clock().now();
    std::erase_if(applications_, [now](const auto &entry) { return entry.second <= now; });
    applications_[processIdentifier] = now + rest;
}

AccessibilityElement::AccessibilityElement(CFReference<AXUIElementRef> element,
                                           std::int32_t processIdentifier,
                                           std::shared_ptr<SilentApplications> silent)
    : element_(std::move(element)),
      processIdentifier_(processIdentifier),
      silent_(std::move(silent)) {
    if (element_) {
        AXUIElementSetMessagingTimeout(element_.get(), messagingTimeout);
    }
}

CFReference<CFTypeRef> AccessibilityElement::attribute(CFStringRef name) const {
    if (!element_ || silent_->contains(processIdentifier_)) {
        return {};
    }
    CFTypeRef value = nullptr;
    const AXError error = AXUIElementCopyAttributeValue(element_.get(), name, &value);
    CFReference owned(value);
    if (error == kAXErrorCannotComplete) {
        silent_->add(processIdentifier_);
    }
    return error == kAXErrorSuccess ? std::move(owned) : CFReference<CFTypeRef>();
}

AccessibilityElement AccessibilityElement::sibling(AXUIElementRef element) const {
    return {CFReference<AXUIElementRef>::sharing(element), processIdentifier_, silent_};
}

} // namespace corvane::macos
