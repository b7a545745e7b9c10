#include "support/RecordingHotKeys.h"

#include <utility>

namespace corvane::testing {

/// Takes one entry out of a table when it is destroyed.
template <typename Base, typename Value>
class RecordingHotKeys::Reference : public Base {
  public:
    Reference(std::map<int, Value> &table, int number) : table_(table), number_(number) {}
    Reference(const Reference &) = delete;
    Reference &operator=(const Reference &) = delete;
    ~Reference() override { table_.erase(number_); }

  private:
    std::map<int, Value> &table_;
    int number_;
};

class RecordingHotKeys::KeyReference
    : public Reference<platform::RegisteredHotKey, platform::HotKey> {
  public:
    KeyReference(RecordingHotKeys &hotKeys, int number)
        : Reference(hotKeys.hotKeys_, number),
          hotKeys_(hotKeys) {}

    bool isHeard() const override { return hotKeys_.isHeard; }

  private:
    RecordingHotKeys &hotKeys_;
};

std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
RecordingHotKeys::installHandler(std::function<void()> pressed) {
    mainThread_.check();
    if (installFailure) {
        return std::unexpected(*installFailure);
    }
    const int number = nextNumber_++;
    handlers_.emplace(number, std::move(pressed));
    return std::make_unique<Reference<platform::HotKeyReference, std::function<void()>>>(handlers_,
                                                                                         number);
}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
RecordingHotKeys::registerHotKey(const platform::HotKey &hotKey) {
    mainThread_.check();
    ++registrations;
    if (registerFailure && !isNeverRefused) {
        return std::unexpected(*registerFailure);
    }
    const int number = nextNumber_++;
    hotKeys_.emplace(number, hotKey);
    return std::make_unique<KeyReference>(*this, number);
}

std::vector<platform::HotKey> RecordingHotKeys::registered() const {
    std::vector<platform::HotKey> result;
    result.reserve(hotKeys_.size());
    for (const auto &[number, hotKey] : hotKeys_) {
        result.push_back(hotKey);
    }
    return result;
}

void RecordingHotKeys::press() {
    if (hotKeys_.empty()) {
        return;
    }
    // A copy: a handler may remove itself.
    const auto handlers = handlers_;
    for (const auto &[number, pressed] : handlers) {
        pressed();
    }
}

} // namespace corvane::testing
