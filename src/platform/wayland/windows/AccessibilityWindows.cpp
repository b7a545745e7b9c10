#include "platform/wayland/windows/AccessibilityWindows.h"

#include <utility>

namespace corvane::wayland {

namespace {

class OtherWindow : public platform::AccessibilityWindow {
  public:
    explicit OtherWindow(Window window) : window_(std::move(window)) {}

    std::optional<std::string> title() override { return window_.title; }

    std::optional<Point> position() override {
        return window_.isOnScreen ? std::optional(Point{window_.frame.x, window_.frame.y})
                                  : std::nullopt;
    }

    std::optional<Size> size() override {
        return window_.isOnScreen ? std::optional(window_.frame.size()) : std::nullopt;
    }

  private:
    const Window window_;
};

} // namespace

std::shared_ptr<const platform::AccessibilityWindows>
accessibilityWindows(Windows &windows, const std::set<std::int32_t> &processes) {
    auto all = windows.windows();
    if (!all) {
        return nullptr;
    }
    auto result = std::make_shared<platform::AccessibilityWindows>();
    for (Window &window : *all) {
        if (processes.contains(window.processIdentifier)) {
            result->push_back(std::make_unique<OtherWindow>(std::move(window)));
        }
    }
    return result;
}

} // namespace corvane::wayland
