#include "platform/wayland/kwin/HotKeys.h"

#include "platform/wayland/kwin/Bus.h"

#include <QDBusObjectPath>
#include <QStringList>

#include <utility>

namespace corvane::wayland::kwin {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView component = u"corvane";

RemoteObject shortcuts() {
    return {u"org.kde.kglobalaccel"_s, u"/kglobalaccel"_s, u"org.kde.KGlobalAccel"_s};
}

/// Component and action, and both as the user reads them in the system settings.
QVariant actionId() {
    return QStringList{component.toString(), u"toggle"_s, u"Corvane"_s,
                       u"Start or stop clicking"_s};
}

/// The keys as Qt numbers them.
QVariant keysOf(const HotKey &hotKey) {
    return (hotKey.command ? static_cast<int>(Qt::META) : 0) |
           (hotKey.shift ? static_cast<int>(Qt::SHIFT) : 0) | (Qt::Key_A + hotKey.letter - 'A');
}

QDBusReply<bool> isAvailable(const HotKey &hotKey) {
    return shortcuts().call(u"isGlobalShortcutAvailable"_s, {keysOf(hotKey), component.toString()});
}

/// The keys that the action has now: the user's choice if there is one, else those given, unless
/// they belong to another program.
QDBusReply<QList<int>> setKeys(const HotKey &hotKey) {
    constexpr unsigned present = 2;
    shortcuts().call(u"doRegister"_s, {actionId()});
    return shortcuts().call(
        u"setShortcut"_s,
        {actionId(), QVariant::fromValue(QList<int>{keysOf(hotKey).toInt()}), present});
}

} // namespace

Shortcut::Shortcut(const QString &path, std::function<void()> pressed)
    : pressed_(std::move(pressed)) {
    const QString service = shortcuts().service;
    const QString interface = u"org.kde.kglobalaccel.Component"_s;
    auto bus = sessionBus();
    bus.connect(service, path, interface, u"globalShortcutPressed"_s, this, SLOT(handlePress()));
    bus.connect(service, path, interface, u"globalShortcutReleased"_s, this, SLOT(handleRelease()));
}

Shortcut::~Shortcut() { shortcuts().send(u"setInactive"_s, {actionId()}); }

bool Shortcut::isHeard() const { return sessionBus().isConnected(); }

void Shortcut::handlePress() {
    if (!std::exchange(isHeld_, true)) {
        pressed_();
    }
}

void Shortcut::handleRelease() { isHeld_ = false; }

bool HotKeys::isOffered() { return isAvailable(startStopKey).isValid(); }

bool HotKeys::isTaken(const HotKey &hotKey) {
    const auto available = isAvailable(hotKey);
    return available.isValid() && !available.value();
}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
HotKeys::registerHotKey(const HotKey &hotKey) {
    const auto keys = setKeys(hotKey);
    const QDBusReply<QDBusObjectPath> path =
        shortcuts().call(u"getComponent"_s, {component.toString()});
    if (!keys.isValid() || !path.isValid()) {
        return std::unexpected(refused);
    }
    if (keys.value().value(0) == 0) {
        return std::unexpected(taken);
    }
    return std::make_unique<Shortcut>(path.value().path(), [this] { handlers_.call(); });
}

} // namespace corvane::wayland::kwin
