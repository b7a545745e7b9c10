#pragma once

#include "platform/ContinuousClock.h"
#include "platform/macos/support/CFReference.h"

#include <ApplicationServices/ApplicationServices.h>

#include <cstdint>
#include <map>
#include <memory>

namespace corvane::macos {

/// Which applications have lately left a message unanswered. They are left alone for a while: each
/// message to one that hangs holds the main thread up. Main thread.
class SilentApplications {
  public:
    bool contains(std::int32_t processIdentifier) const;
    void add(std::int32_t processIdentifier);

  private:
    /// Until when.
    std::map<std::int32_t, platform::Instant> applications_;
};

/// An application or one of its windows, as the Accessibility interface shows it. Main thread.
class AccessibilityElement {
  public:
    AccessibilityElement(CFReference<AXUIElementRef> element, std::int32_t processIdentifier,
                         std::shared_ptr<SilentApplications> silent);

    /// Null when the element does not answer in time or has no such attribute.
    CFReference<CFTypeRef> attribute(CFStringRef name) const;

    /// Another element of the same application.
    AccessibilityElement sibling(AXUIElementRef element) const;

  private:
    CFReference<AXUIElementRef> element_;
    std::int32_t processIdentifier_;
    std::shared_ptr<SilentApplications> silent_;
};

} // namespace corvane::macos
