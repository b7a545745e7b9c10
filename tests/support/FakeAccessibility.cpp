#include "support/FakeAccessibility.h"

#include <utility>

namespace corvane::testing {

namespace {

class Window : public platform::AccessibilityWindow {
  public:
    explicit Window(FakeWindow window) : window_(std::move(window)) {}

    std::optional<std::string> title() override { return window_.title; }
    std::optional<Point> position() override { return window_.position; }
    std::optional<Size> size() override { return window_.size; }

  private:
    FakeWindow window_;
};

} // namespace

bool FakeAccessibility::isProcessTrusted() {
    ++checks;
    return isTrusted;
}

bool FakeAccessibility::isProcessTrustedWithPrompt() {
    ++prompts;
    if (whilePrompting) {
        whilePrompting();
    }
    return isTrusted;
}

std::shared_ptr<const platform::AccessibilityWindows>
FakeAccessibility::windows(std::int32_t processIdentifier) {
    ++windowReadings;
    const auto found = windowsByProcess.find(processIdentifier);
    if (found == windowsByProcess.end()) {
        return nullptr;
    }
    auto result = std::make_shared<platform::AccessibilityWindows>();
    for (const FakeWindow &window : found->second) {
        result->push_back(std::make_unique<Window>(window));
    }
    return result;
}

} // namespace corvane::testing
