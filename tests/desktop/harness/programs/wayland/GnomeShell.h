#pragma once

#include <QString>

#include <optional>

namespace corvane::desktop {

/// GNOME Shell's own evaluation of scripts, which it offers in its unsafe mode.
class GnomeShell {
  public:
    /// Whether it is on the message bus and has finished starting.
    static bool isRunning();

    /// The value of that JavaScript expression, as JSON; nothing where it fails.
    static std::optional<QString> evaluate(const QString &expression);
};

} // namespace corvane::desktop
