#include "platform/linux/LinuxAccessibilityWindows.h"

#include <utility>

namespace corvane::x11 {

namespace {

class LinuxAccessibilityWindow : public platform::AccessibilityWindow {
  public:
    explicit LinuxAccessibilityWindow(std::shared_ptr<const WindowFacts> facts)
        : facts_(std::move(facts)) {}

    std::optional<std::string> title() override { return facts_->title; }

    std::optional<Point> position() override {
        return facts_->isOnScreen ? std::optional(Point{facts_->bounds.x, facts_->bounds.y})
                                  : std::nullopt;
    }

    std::optional<Size> size() override {
        return facts_->isOnScreen ? std::optional(facts_->bounds.size()) : std::nullopt;
    }

  private:
    const std::shared_ptr<const WindowFacts> facts_;
};

} // namespace

std::optional<std::vector<std::unique_ptr<platform::AccessibilityWindow>>>
LinuxAccessibilityWindows::windows(std::int32_t processIdentifier) {
    auto known = windows_.windowsOf(processIdentifier);
    std::vector<std::unique_ptr<platform::AccessibilityWindow>> windows;
    windows.reserve(known.size());
    for (std::shared_ptr<const WindowFacts> &facts : known) {
        windows.push_back(std::make_unique<LinuxAccessibilityWindow>(std::move(facts)));
    }
    if (windows_.connection().isLost()) {
        return std::nullopt;
    }
    return windows;
}

} // namespace corvane::x11
