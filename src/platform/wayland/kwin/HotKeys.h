#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/windowing/HotKeyHandlers.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <utility>

namespace corvane::wayland::kwin {

/// The action with its keys. Destroying it leaves the action in the user's system settings, without
/// effect. Main thread.
class Shortcut : public QObject, public platform::RegisteredHotKey {
    Q_OBJECT

  public:
    /// `path` is that of the program's component on the bus.
    Shortcut(const QString &path, std::function<void()> pressed);
    ~Shortcut() override;

    Shortcut(const Shortcut &) = delete;
    Shortcut &operator=(const Shortcut &) = delete;

    bool isHeard() const override;

  private:
    Q_SLOT void handlePress();
    Q_SLOT void handleRelease();

    const std::function<void()> pressed_;
    /// Plasma 6 reports a held key again and again.
    bool isHeld_ = false;
};

/// Global shortcuts of KDE Plasma (KGlobalAccel), which the user can see and change in the system
/// settings. Main thread.
class HotKeys : public platform::HotKeys {
  public:
    std::string_view mechanism() const override { return "KGlobalAccel"; }

    std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
    installHandler(std::function<void()> pressed) override {
        return handlers_.install(std::move(pressed));
    }

    /// Where the user has given the action other keys in the system settings, those are registered
    /// instead. Fails with `taken` where the keys belong to another program or the user has taken
    /// all keys from the action, and with `refused` where Plasma does not answer.
    std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
    registerHotKey(const HotKey &hotKey) override;

    void setUrgent(bool /*isUrgent*/) override {}

    /// Whether the session has global shortcuts.
    static bool isOffered();
    /// Whether the keys belong to another program.
    static bool isTaken(const HotKey &hotKey);

    static constexpr platform::HotKeyStatus taken = 1;
    static constexpr platform::HotKeyStatus refused = 2;

  private:
    linux::HotKeyHandlers handlers_;
};

} // namespace corvane::wayland::kwin
