#pragma once

#include "AccessibleObject.h"
#include "CommandInput.h"

#include <QDBusConnection>

#include <optional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A screen reader, as far as a test needs one. Its commands: "window" with a title reports what is
/// said about everything in that window of a program, a line each, "focus" what has the keyboard.
class ReaderProgram {
  public:
    /// Switches assistive technology on for the session and connects to its bus; false where that
    /// cannot be done.
    bool appear();

  private:
    bool carryOut(const std::vector<std::string> &fields) const;
    std::vector<AccessibleObject> windows() const;
    bool readWindow(const std::string &title) const;
    bool readFocus() const;

    QDBusConnection bus_{QString()};
    CommandInput commands_{[this](const auto &fields) { return carryOut(fields); }};
};

} // namespace corvane::desktop
