#include "platform/x11/hotkey/HotKeys.h"

#include "platform/x11/hotkey/GrabbedHotKey.h"

#include <utility>

namespace corvane::x11 {

namespace {

class InstalledHandler : public platform::HotKeyReference {
  public:
    explicit InstalledHandler(std::shared_ptr<const std::function<void()>> handler)
        : handler_(std::move(handler)) {}

  private:
    std::shared_ptr<const std::function<void()>> handler_;
};

} // namespace

HotKeys::HotKeys(XcbEvents &events)
    : events_(events),
      keyboardChanges_(events.connection()),
      rawKeys_(events.connection()) {}

std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
HotKeys::installHandler(std::function<void()> pressed) {
    std::erase_if(handlers_, [](const auto &known) { return known.expired(); });
    auto handler = std::make_shared<const Handler>(std::move(pressed));
    handlers_.push_back(handler);
    return std::make_unique<InstalledHandler>(std::move(handler));
}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
HotKeys::registerHotKey(const HotKey &hotKey) {
    auto key = std::make_unique<GrabbedHotKey>(events_, keyboardChanges_, rawKeys_, hotKey,
                                               [this] { pressed(); });
    if (const platform::HotKeyStatus status = key->grab(); status != 0) {
        return std::unexpected(status);
    }
    return key;
}

void HotKeys::pressed() {
    // A handler may remove itself or install another.
    const auto handlers = handlers_;
    for (const auto &known : handlers) {
        if (const auto handler = known.lock()) {
            (*handler)();
        }
    }
}

} // namespace corvane::x11
