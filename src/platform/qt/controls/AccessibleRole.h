#pragma once

#include <QAccessible>

namespace corvane::qt {

/// A widget that tells a screen reader itself what it is.
class AccessibleRole {
  public:
    virtual ~AccessibleRole() = default;

    virtual QAccessible::Role accessibleRole() const = 0;

    /// Whether it is the one chosen among its siblings.
    virtual bool isAccessiblySelected() const { return false; }
};

/// Lets screen readers see the roles of all widgets that tell theirs. May be called again.
void installAccessibleRoles();

} // namespace corvane::qt
