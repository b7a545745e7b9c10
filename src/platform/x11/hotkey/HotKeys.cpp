#include "platform/x11/hotkey/HotKeys.h"

#include "platform/x11/hotkey/GrabbedHotKey.h"

namespace corvane::x11 {

HotKeys::HotKeys(XcbEvents &events)
    : events_(events),
      keyboardChanges_(events.connection()),
      rawKeys_(events.connection()) {}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
HotKeys::registerHotKey(const HotKey &hotKey) {
    auto key = std::make_unique<GrabbedHotKey>(events_, keyboardChanges_, rawKeys_, hotKey,
                                               [this] { handlers_.call(); });
    if (const platform::HotKeyStatus status = key->grab(); status != 0) {
        return std::unexpected(status);
    }
    return key;
}

} // namespace corvane::x11
