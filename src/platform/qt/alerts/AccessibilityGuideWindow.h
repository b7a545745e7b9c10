#pragma once

#include "platform/qt/OwnWindows.h"

#include <QPointer>

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
    std::string closeButton;
};

/// Shows a guide in a window of its own, one at a time. Main thread.
class AccessibilityGuideWindow {
  public:
    explicit AccessibilityGuideWindow(OwnWindows ownWindows) : ownWindows_(std::move(ownWindows)) {}
    ~AccessibilityGuideWindow();

    AccessibilityGuideWindow(const AccessibilityGuideWindow &) = delete;
    AccessibilityGuideWindow &operator=(const AccessibilityGuideWindow &) = delete;

    /// Opens the window, in place of one that is open, and gives it the keyboard.
    void show(const AccessibilityGuide &guide);

  private:
    const OwnWindows ownWindows_;
    QPointer<QDialog> dialog_;
};

} // namespace corvane::qt
