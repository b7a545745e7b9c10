#include "support/recorder/RecordingSettingsWindows.h"

#include <stdexcept>
#include <utility>

namespace corvane::testing {

class RecordingSettingsWindows::Window : public platform::NativeSettingsWindow {
  public:
    explicit Window(std::shared_ptr<RecordedSettingsWindow> record) : record_(std::move(record)) {}

    ~Window() override {
        record_->isVisible = false;
        record_->isDestroyed = true;
    }

    Window(const Window &) = delete;
    Window &operator=(const Window &) = delete;

    bool isVisible() const override { return record_->isVisible; }

    void makeKeyAndOrderFront() override {
        record_->isVisible = true;
        ++record_->ordersFront;
    }

    void orderOut() override { record_->isVisible = false; }
    void center() override { ++record_->centerings; }
    void setTitle(const std::string &title) override { record_->title = title; }

    void setSelectedToolbarItem(const std::string &identifier) override {
        record_->selectedToolbarItem = identifier;
    }

    void setContent(const View &content) override {
        record_->content = content;
        ++record_->contentsSet;
    }

    void updateContent(const View &content) override {
        record_->content = content;
        ++record_->contentUpdates;
    }

  private:
    const std::shared_ptr<RecordedSettingsWindow> record_;
};

std::unique_ptr<platform::NativeSettingsWindow> RecordingSettingsWindows::create(
    const SettingsWindow &window,
    std::function<void(const std::string &identifier)> toolbarItemSelected) {
    if (whileCreating) {
        whileCreating();
    }
    windows_.push_back(
        std::make_shared<RecordedSettingsWindow>(window, std::move(toolbarItemSelected)));
    return std::make_unique<Window>(windows_.back());
}

RecordedSettingsWindow &RecordingSettingsWindows::window() const {
    if (windows_.empty()) {
        throw std::logic_error("no settings window was made");
    }
    return *windows_.back();
}

} // namespace corvane::testing
