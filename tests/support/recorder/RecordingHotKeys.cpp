#include "support/recorder/RecordingHotKeys.h"

#include <algorithm>
#include <utility>

namespace corvane::testing {

class RecordingHotKeys::HandlerReference : public platform::HotKeyReference {
  public:
    HandlerReference(RecordingHotKeys &hotKeys, int number) : hotKeys_(hotKeys), number_(number) {}
    HandlerReference(const HandlerReference &) = delete;
    HandlerReference &operator=(const HandlerReference &) = delete;
    ~HandlerReference() override {
        hotKeys_.handlers_.erase(number_);
        hotKeys_.givenBack("handler");
    }

  private:
    RecordingHotKeys &hotKeys_;
    int number_;
};

class RecordingHotKeys::KeyReference : public platform::RegisteredHotKey {
  public:
    KeyReference(RecordingHotKeys &hotKeys, int number) : hotKeys_(hotKeys), number_(number) {}
    KeyReference(const KeyReference &) = delete;
    KeyReference &operator=(const KeyReference &) = delete;
    ~KeyReference() override {
        hotKeys_.hotKeys_.erase(number_);
        hotKeys_.givenBack("hot key");
    }

    bool isHeard() const override { return hotKeys_.isHeard; }

  private:
    RecordingHotKeys &hotKeys_;
    int number_;
};

std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
RecordingHotKeys::installHandler(std::function<void()> pressed) {
    mainThread_.check();
    if (installFailure) {
        return std::unexpected(*installFailure);
    }
    const int number = nextNumber_++;
    handlers_.emplace(number, std::move(pressed));
    mostHandlers = std::max(mostHandlers, handlers_.size());
    return std::make_unique<HandlerReference>(*this, number);
}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
RecordingHotKeys::registerHotKey(const HotKey &hotKey) {
    mainThread_.check();
    ++registrations;
    if (whileRegistering) {
        whileRegistering();
    }
    if (registerFailure && !isNeverRefused) {
        return std::unexpected(*registerFailure);
    }
    const int number = nextNumber_++;
    hotKeys_.emplace(number, hotKey);
    mostHotKeys = std::max(mostHotKeys, hotKeys_.size());
    return std::make_unique<KeyReference>(*this, number);
}

std::vector<HotKey> RecordingHotKeys::registered() const {
    std::vector<HotKey> result;
    result.reserve(hotKeys_.size());
    for (const auto &[number, hotKey] : hotKeys_) {
        result.push_back(hotKey);
    }
    return result;
}

void RecordingHotKeys::press() {
    if (!hotKeys_.empty()) {
        pressUnderWay()();
    }
}

std::function<void()> RecordingHotKeys::pressUnderWay() const {
    return [handlers = handlers_] {
        for (const auto &[number, pressed] : handlers) {
            pressed();
        }
    };
}

void RecordingHotKeys::givenBack(const std::string &what) const {
    if (whileGivingBack) {
        whileGivingBack(what);
    }
}

} // namespace corvane::testing
