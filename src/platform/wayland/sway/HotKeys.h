#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/windowing/HotKeyHandlers.h"
#include "platform/wayland/sway/Ipc.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvane::wayland::sway {

/// Key bindings of sway's, made while the program runs.
class HotKeys : public platform::HotKeys {
  public:
    HotKeys();
    ~HotKeys() override;

    HotKeys(const HotKeys &) = delete;
    HotKeys &operator=(const HotKeys &) = delete;

    std::string_view mechanism() const override { return "sway"; }

    std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
    installHandler(std::function<void()> pressed) override {
        return handlers_.install(std::move(pressed));
    }

    /// Fails with `taken` where sway's configuration binds the keys already, and with `refused`
    /// where sway does not answer or does not know them.
    std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
    registerHotKey(const HotKey &hotKey) override;

    void setUrgent(bool /*isUrgent*/) override {}

    /// Whether sway is there to bind keys.
    bool isOffered() const { return readable_ != nullptr; }
    /// Whether sway's configuration binds those keys.
    bool isTaken(const HotKey &hotKey) const;

    static constexpr platform::HotKeyStatus taken = 1;
    static constexpr platform::HotKeyStatus refused = 2;

  private:
    class BoundKeys;

    bool run(const std::string &command) const;
    void readEvent();

    const std::optional<Ipc> commands_ = Ipc::open();
    const std::optional<Ipc> events_ = Ipc::open();
    linux::HotKeyHandlers handlers_;
    std::vector<BoundKeys *> bound_;
    std::unique_ptr<QSocketNotifier> readable_;
};

} // namespace corvane::wayland::sway
