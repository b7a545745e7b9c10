#include "support/recorder/RecordingStatusBar.h"

#include <stdexcept>
#include <utility>

namespace corvane::testing {

class RecordingStatusBar::Item : public platform::StatusItem {
  public:
    Item(const RecordingStatusBar &bar, std::shared_ptr<RecordedStatusItem> record)
        : bar_(bar),
          record_(std::move(record)) {}
    Item(const Item &) = delete;
    Item &operator=(const Item &) = delete;
    ~Item() override {
        bar_.mainThread_.check();
        record_->isDestroyed = true;
        record_->perform_ = nullptr;
    }

    std::optional<Size> buttonSize() const override { return bar_.buttonSize; }

    void setIcon(const StatusIcon &icon) override {
        bar_.mainThread_.check();
        record_->icon = icon;
        ++record_->iconsSet;
    }

    void setMenu(const Menu &menu) override {
        bar_.mainThread_.check();
        record_->menu = menu;
        ++record_->menusSet;
    }

    void setToolTip(const std::string &text) override {
        bar_.mainThread_.check();
        record_->toolTip = text;
    }

    bool isShown() const override { return bar_.isPresent || bar_.isAlwaysShown; }

    void openMenu() override {
        bar_.mainThread_.check();
        ++record_->menusOpened;
    }

  private:
    const RecordingStatusBar &bar_;
    std::shared_ptr<RecordedStatusItem> record_;
};

std::unique_ptr<platform::StatusItem>
RecordingStatusBar::createItem(std::function<void(const MenuCommand &)> perform) {
    mainThread_.check();
    items_.push_back(std::make_shared<RecordedStatusItem>(std::move(perform)));
    return std::make_unique<Item>(*this, items_.back());
}

RecordedStatusItem &RecordingStatusBar::item() const {
    if (items_.empty()) {
        throw std::logic_error("no status item was made");
    }
    return *items_.back();
}

} // namespace corvane::testing
