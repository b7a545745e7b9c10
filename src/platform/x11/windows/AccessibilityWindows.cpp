#include "platform/x11/windows/AccessibilityWindows.h"

#include <optional>
#include <string>
#include <utility>

namespace corvane::x11 {

namespace {

class LinuxAccessibilityWindow : public platform::AccessibilityWindow {
  public:
    explicit LinuxAccessibilityWindow(std::shared_ptr<const WindowInfo> facts)
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
    const std::shared_ptr<const WindowInfo> facts_;
};

} // namespace

std::shared_ptr<const platform::AccessibilityWindows>
AccessibilityWindows::windows(std::int32_t processIdentifier) {
    auto known = windows_.windowsOf(processIdentifier);
    if (windows_.connection().isLost()) {
        return nullptr;
    }
    if (known != known_) {
        auto answer = std::make_shared<platform::AccessibilityWindows>();
        for (const std::shared_ptr<const WindowInfo> &facts : *known) {
            answer->push_back(std::make_unique<LinuxAccessibilityWindow>(facts));
        }
        known_ = std::move(known);
        answer_ = std::move(answer);
    }
    return answer_;
}

} // namespace corvane::x11
