#include "support/RecordingOverlayWindows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvane::testing {

class RecordingOverlayWindows::Overlay : public platform::NativeOverlay {
  public:
    Overlay(std::shared_ptr<RecordedOverlay> record, const OneThread &mainThread)
        : record_(std::move(record)),
          mainThread_(mainThread) {}
    Overlay(const Overlay &) = delete;
    Overlay &operator=(const Overlay &) = delete;
    ~Overlay() override {
        mainThread_.check();
        record_->isDestroyed = true;
        record_->isVisible = false;
        record_->isKey = false;
        record_->events_ = {};
        record_->completions_.clear();
    }

    void orderFront() override {
        mainThread_.check();
        record_->isVisible = true;
    }

    void makeKeyAndOrderFront() override {
        mainThread_.check();
        record_->isVisible = true;
        record_->isKey = record_->window.canBecomeKey;
    }

    void orderOut() override {
        mainThread_.check();
        record_->isVisible = false;
        record_->isKey = false;
    }

    void setFrame(const Rectangle &frame) override {
        mainThread_.check();
        record_->frame = frame;
        record_->framesSet.push_back(frame);
    }

    void setDrawing(const Drawing &drawing) override {
        mainThread_.check();
        record_->drawing = drawing;
        ++record_->drawingsSet;
    }

    void play(const Animation &animation, std::function<void()> completion) override {
        mainThread_.check();
        record_->plays.push_back(animation);
        record_->completions_.push_back(std::move(completion));
    }

  private:
    std::shared_ptr<RecordedOverlay> record_;
    const OneThread &mainThread_;
};

std::unique_ptr<platform::NativeOverlay>
RecordingOverlayWindows::create(const BorderlessWindow &window, platform::OverlayEvents events) {
    mainThread_.check();
    overlays_.push_back(std::make_shared<RecordedOverlay>(window, std::move(events)));
    return std::make_unique<Overlay>(overlays_.back(), mainThread_);
}

std::vector<std::shared_ptr<RecordedOverlay>> RecordingOverlayWindows::visible() const {
    std::vector<std::shared_ptr<RecordedOverlay>> result;
    std::copy_if(overlays_.begin(), overlays_.end(), std::back_inserter(result),
                 [](const auto &overlay) { return overlay->isVisible; });
    return result;
}

std::vector<std::shared_ptr<RecordedOverlay>> RecordingOverlayWindows::living() const {
    std::vector<std::shared_ptr<RecordedOverlay>> result;
    std::copy_if(overlays_.begin(), overlays_.end(), std::back_inserter(result),
                 [](const auto &overlay) { return !overlay->isDestroyed; });
    return result;
}

void RecordingOverlayWindows::completeAnimations() {
    for (const std::shared_ptr<RecordedOverlay> &overlay : living()) {
        overlay->completeAnimations();
    }
}

} // namespace corvane::testing
