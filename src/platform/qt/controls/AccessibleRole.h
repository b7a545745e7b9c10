#pragma once

#include <QAccessible>

namespace corvane::qt {

/// A widget with a role of its own for screen readers.
class AccessibleRole {
  public:
    virtual ~AccessibleRole() = default;

    virtual QAccessible::Role accessibleRole() const = 0;

    /// Whether it is the selected one among its siblings.
    virtual bool isAccessiblySelected() const { return false; }
};

/// Makes Qt's accessibility use the roles of all such widgets. May be called again.
void installAccessibleRoles();

} // namespace corvane::qt
