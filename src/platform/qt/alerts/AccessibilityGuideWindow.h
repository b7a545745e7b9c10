#pragma once

#include "platform/qt/OwnWindows.h"

#include <QPointer>

#include <functional>
#include <string>
#include <utility>
#include <vector>

class QDialog;

namespace corvane::qt {

/// The texts of a page that explains what is missing and how to get it.
struct AccessibilityGuide {
    std::string title;
    std::string heading;
    std::vector<std::string> paragraphs;
    /// Where the user is to be asked, it leads to that question.
    std::string closeButton;
};

/// Shows a guide in a window of its own, one at a time. Main thread.
class AccessibilityGuideWindow {
  public:
    explicit AccessibilityGuideWindow(OwnWindows ownWindows) : ownWindows_(std::move(ownWindows)) {}
    ~AccessibilityGuideWindow();

    AccessibilityGuideWindow(const AccessibilityGuideWindow &) = delete;
    AccessibilityGuideWindow &operator=(const AccessibilityGuideWindow &) = delete;

    /// Opens the window, in place of one that is open, and gives it the keyboard. Calls `confirmed`
    /// when the user presses the button, and not when the window is merely closed.
    void show(const AccessibilityGuide &guide, std::function<void()> confirmed = {});

    void close();

  private:
    const OwnWindows ownWindows_;
    QPointer<QDialog> dialog_;
};

} // namespace corvane::qt
