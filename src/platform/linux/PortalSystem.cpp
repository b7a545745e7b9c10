#include "platform/linux/PortalSystem.h"

#include "platform/freedesktop/bus/SessionBus.h"
#include "platform/linux/environment/UserDirectories.h"
#include "platform/wayland/portal/CursorCast.h"
#include "platform/wayland/windows/AccessibilityWindows.h"
#include "support/Log.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <optional>

namespace corvane::linux {

using namespace Qt::StringLiterals;
using wayland::portal::Consent;
using wayland::portal::RemoteDesktop;

namespace {

wayland::portal::RestoreToken restoreToken() {
    return wayland::portal::RestoreToken(dataDirectory() / "corvane" / "remote-desktop-token");
}

AccessibilityObstacle obstacleBy(Consent consent) {
    switch (consent) {
    case Consent::refused:
        return AccessibilityObstacle::consentRefused;
    case Consent::withoutPointer:
        return AccessibilityObstacle::consentWithoutPointer;
    case Consent::withoutMonitor:
        return AccessibilityObstacle::consentWithoutScreen;
    case Consent::ended:
        return AccessibilityObstacle::consentEnded;
    case Consent::given:
        return AccessibilityObstacle::none;
    case Consent::notAsked:
    case Consent::asked:
        break;
    }
    return AccessibilityObstacle::consentNeeded;
}

/// For the log.
std::string textFor(Consent consent) {
    switch (consent) {
    case Consent::given:
        return "The desktop's portal lets Corvane click";
    case Consent::refused:
        return "The desktop's portal does not let Corvane click: refused";
    case Consent::withoutPointer:
        return "The desktop's portal does not let Corvane click: remote interaction is not allowed";
    case Consent::withoutMonitor:
        return "The desktop's portal does not let Corvane click: no screen was chosen";
    case Consent::notAsked:
    case Consent::asked:
    case Consent::ended:
        break;
    }
    return "The desktop's portal has ended the session in which Corvane clicks";
}

/// A connection to the bus that has the portal.
std::optional<QDBusConnection> offeringBus() {
    auto bus = QDBusConnection::connectToBus(
        QString::fromStdString(freedesktop::sessionBusAddress()), u"desktop-portal"_s);
    return bus.isConnected() && RemoteDesktop::isOffered(bus) ? std::optional(bus) : std::nullopt;
}

constexpr platform::HotKeyStatus notOffered = 1;

/// No program is told of the others' windows, so no application is found by one.
WindowOwnerSource noOwners() {
    return {.listed = [none = std::make_shared<const WindowOwners>()] { return none; },
            .all = [] { return WindowOwners(); }};
}

} // namespace

bool PortalSystem::isOffered() { return offeringBus().has_value(); }

std::unique_ptr<PortalSystem> PortalSystem::connect(x11::XcbEvents &events,
                                                    drawing::SymbolImages &symbols,
                                                    qt::OwnWindows ownWindows) {
    const auto bus = offeringBus();
    return bus ? std::make_unique<PortalSystem>(events, *bus, symbols, std::move(ownWindows))
               : nullptr;
}

PortalSystem::PortalSystem(x11::XcbEvents &events, const QDBusConnection &bus,
                           drawing::SymbolImages &symbols, qt::OwnWindows ownWindows)
    : remoteDesktop_(bus, restoreToken()),
      screens_(events),
      overlayWindows_(events, screens_, symbols),
      windowList_(windows_),
      applications_(noOwners(), freedesktop::DesktopEntries::ofUser()),
      accessibility_(*this, std::move(ownWindows)) {
    QObject::connect(&remoteDesktop_, &RemoteDesktop::concluded, [this] { consentChanged(); });
}

void PortalSystem::consentChanged() {
    const Consent consent = remoteDesktop_.consent();
    log(textFor(consent));
    mouseEvents_.use(remoteDesktop_.session());
    if (consent == Consent::given) {
        accessibility_.closeGuide();
    } else if (consent != Consent::ended) {
        accessibility_.openSettings();
    }
    permissionChanged_();
}

AccessibilityObstacle PortalSystem::Accessibility::obstacle() const {
    return wayland::portal::CursorCast::isPossible() ? obstacleBy(system_.remoteDesktop_.consent())
                                                     : AccessibilityObstacle::noScreenCast;
}

bool PortalSystem::Accessibility::isProcessTrusted() {
    return obstacle() == AccessibilityObstacle::none;
}

bool PortalSystem::Accessibility::isProcessTrustedWithPrompt() {
    RemoteDesktop &remoteDesktop = system_.remoteDesktop_;
    if (remoteDesktop.remembersConsent()) {
        constexpr std::chrono::seconds answerWithoutQuestion{1};
        QEventLoop loop;
        QObject::connect(&remoteDesktop, &RemoteDesktop::concluded, &loop, &QEventLoop::quit);
        QTimer::singleShot(answerWithoutQuestion, &loop, &QEventLoop::quit);
        remoteDesktop.ask();
        loop.exec();
    }
    const bool isTrusted = isProcessTrusted();
    if (!isTrusted) {
        openSettings();
    }
    return isTrusted;
}

void PortalSystem::Accessibility::openSettings() {
    const AccessibilityObstacle present = obstacle();
    std::function<void()> confirmed;
    if (isAnsweredByUser(present)) {
        confirmed = [&remoteDesktop = system_.remoteDesktop_] { remoteDesktop.ask(); };
    }
    guideWindow_.show(accessibilityGuide(present), std::move(confirmed));
}

std::shared_ptr<const platform::AccessibilityWindows>
PortalSystem::Accessibility::windows(std::int32_t processIdentifier) {
    return wayland::accessibilityWindows(system_.windows_,
                                         system_.applications_.processesWith(processIdentifier));
}

std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
PortalSystem::NoHotKeys::installHandler(std::function<void()> /*pressed*/) {
    return std::unexpected(notOffered);
}

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
PortalSystem::NoHotKeys::registerHotKey(const HotKey & /*hotKey*/) {
    return std::unexpected(notOffered);
}

} // namespace corvane::linux
