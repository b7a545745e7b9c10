#include "support/recorder/RecordingOverlayWindows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvane::testing {

class RecordingOverlayWindows::Overlay : public platform::NativeOverlay {
  public:
    Overlay(const RecordingOverlayWindows &windows, std::shared_ptr<RecordedOverlay> record)
        : windows_(windows),
          record_(std::move(record)) {}
    Overlay(const Overlay &) = delete;
    Overlay &operator=(const Overlay &) = delete;
    ~Overlay() override {
        windows_.mainThread_.check();
        record_->isDestroyed = true;
        record_->isVisible = false;
        record_->isKey = false;
        record_->events_ = {};
        record_->completions_.clear();
    }

    void orderFront() override {
        windows_.mainThread_.check();
        record_->isVisible = true;
    }

    void makeKeyAndOrderFront() override {
        windows_.mainThread_.check();
        record_->isVisible = true;
        if (record_->window.canBecomeKey && !windows_.isKeyboardRefused) {
            for (const auto &other : windows_.overlays_) {
                other->isKey = false;
            }
            record_->isKey = true;
        }
    }

    void orderOut() override {
        windows_.mainThread_.check();
        record_->isVisible = false;
        record_->isKey = false;
    }

    Rectangle frame() const override { return record_->frame; }

    void setFrame(const Rectangle &frame) override {
        windows_.mainThread_.check();
        record_->frame = frame;
        record_->framesSet.push_back(frame);
    }

    void setDrawing(const Drawing &drawing) override {
        windows_.mainThread_.check();
        record_->drawing = drawing;
        ++record_->drawingsSet;
    }

    void play(const Animation &animation, std::function<void()> completion) override {
        windows_.mainThread_.check();
        record_->plays.push_back(animation);
        record_->completions_.push_back(std::move(completion));
    }

  private:
    const RecordingOverlayWindows &windows_;
    std::shared_ptr<RecordedOverlay> record_;
};

std::unique_ptr<platform::NativeOverlay>
RecordingOverlayWindows::create(const BorderlessWindow &window, platform::OverlayEvents events) {
    mainThread_.check();
    overlays_.push_back(std::make_shared<RecordedOverlay>(window, std::move(events)));
    overlays_.back()->deafUnder = deafUnder;
    overlays_.back()->hasEscapeKey = isKeyboardRefused && window.canBecomeKey;
    return std::make_unique<Overlay>(*this, overlays_.back());
}

std::vector<std::shared_ptr<RecordedOverlay>> RecordingOverlayWindows::visible() const {
    std::vector<std::shared_ptr<RecordedOverlay>> result;
    std::ranges::copy_if(overlays_, std::back_inserter(result),
                         [](const auto &overlay) { return overlay->isVisible; });
    return result;
}

std::vector<std::shared_ptr<RecordedOverlay>> RecordingOverlayWindows::living() const {
    std::vector<std::shared_ptr<RecordedOverlay>> result;
    std::ranges::copy_if(overlays_, std::back_inserter(result),
                         [](const auto &overlay) { return !overlay->isDestroyed; });
    return result;
}

void RecordingOverlayWindows::completeAnimations() {
    for (const std::shared_ptr<RecordedOverlay> &overlay : living()) {
        overlay->completeAnimations();
    }
}

} // namespace corvane::testing
