#pragma once

#include "platform/drawing/SymbolImages.h"
#include "platform/linux/AccessibilityGuide.h"
#include "platform/linux/Applications.h"
#include "platform/linux/WindowSystem.h"
#include "platform/qt/alerts/AccessibilityGuideWindow.h"
#include "platform/wayland/portal/MouseEvents.h"
#include "platform/wayland/portal/RemoteDesktop.h"
#include "platform/wayland/windows/WindowList.h"
#include "platform/x11/overlay/OverlayWindows.h"
#include "platform/x11/screens/Screens.h"

#include <QDBusConnection>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace corvane::linux {

/// A Wayland desktop that lets programs click through its portal when the user agrees, such as
/// GNOME. The program's own windows and overlays are X clients.
class PortalSystem : public WindowSystem {
  public:
    /// Whether the session's desktop has a portal for this.
    static bool isOffered();

    /// Null where the session's desktop has no portal for this. Everything given outlives the
    /// system.
    static std::unique_ptr<PortalSystem>
    connect(x11::XcbEvents &events, drawing::SymbolImages &symbols, qt::OwnWindows ownWindows);

    PortalSystem(x11::XcbEvents &events, const QDBusConnection &bus, drawing::SymbolImages &symbols,
                 qt::OwnWindows ownWindows);

    Facilities facilities() override {
        return {accessibility_,  applications_, hotKeys_,   mouseEvents_,
                overlayWindows_, screens_,      windowList_};
    }

    void whenPermissionChanges(const std::function<void()> &changed) override {
        permissionChanged_ = changed;
    }

  private:
    /// The right that the user gives in the desktop's own window.
    class Accessibility : public platform::Accessibility {
      public:
        Accessibility(PortalSystem &system, qt::OwnWindows ownWindows)
            : system_(system),
              guideWindow_(std::move(ownWindows)) {}

        bool isProcessTrusted() override;
        /// Where the user has agreed before, the desktop may grant the right at once and without a
        /// question.
        bool isProcessTrustedWithPrompt() override;
        /// Says what the desktop will ask; then the desktop asks.
        void openSettings() override;
        std::shared_ptr<const platform::AccessibilityWindows>
        windows(std::int32_t processIdentifier) override;

        void closeGuide() { guideWindow_.close(); }

      private:
        AccessibilityObstacle obstacle() const;

        PortalSystem &system_;
        qt::AccessibilityGuideWindow guideWindow_;
    };

    /// No such desktop tells programs of each other's windows.
    class UnknownWindows : public wayland::Windows {
      public:
        std::optional<std::vector<wayland::Window>> windows() override { return std::nullopt; }
    };

    /// Nor does the portal give programs keys.
    class NoHotKeys : public platform::HotKeys {
      public:
        std::string_view mechanism() const override { return "portal"; }
        std::expected<std::unique_ptr<platform::HotKeyReference>, platform::HotKeyStatus>
        installHandler(std::function<void()> pressed) override;
        std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
        registerHotKey(const HotKey &hotKey) override;
        void setUrgent(bool /*isUrgent*/) override {}
    };

    void consentChanged();

    std::function<void()> permissionChanged_ = [] {};
    wayland::portal::RemoteDesktop remoteDesktop_;
    wayland::portal::MouseEvents mouseEvents_;
    x11::Screens screens_;
    x11::OverlayWindows overlayWindows_;
    UnknownWindows windows_;
    wayland::WindowList windowList_;
    Applications applications_;
    Accessibility accessibility_;
    NoHotKeys hotKeys_;
};

} // namespace corvane::linux
