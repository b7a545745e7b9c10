#pragma once

#include "platform/macos/support/CFReference.h"

#include <ApplicationServices/ApplicationServices.h>

#include <cstdint>
#include <memory>

namespace corvane::macos {

class SilentApplications;

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
