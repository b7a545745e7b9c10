#pragma once

#include "platform/StatusBar.h"
#include "platform/drawing/SymbolImages.h"
#include "platform/freedesktop/bus/SessionBus.h"
#include "platform/freedesktop/tray/DBusMenuExporter.h"
#include "platform/freedesktop/tray/StatusNotifierItem.h"
#include "platform/freedesktop/tray/StatusNotifierRegistration.h"
#include "platform/qt/menus/MenuRenderer.h"
#include "platform/x11/screens/SystemTray.h"

#include <QSystemTrayIcon>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace corvane::linux {

/// The status item on whatever panel the desktop has: by preference as a status notifier item,
/// whose menu the panel draws, else in the X server's system tray with a menu of our own. A panel
/// and the message bus may appear, end or restart at any time. Panels show no text beside an item:
/// the icon's title is not drawn. Main thread.
class StatusItem : public platform::StatusItem {
  public:
    /// `events` outlives the item.
    StatusItem(x11::XcbEvents &events, std::function<void(const MenuCommand &)> perform);

    std::optional<Size> buttonSize() const override;
    void setIcon(const StatusIcon &icon) override;
    void setMenu(const Menu &menu) override;
    void setToolTip(const std::string &text) override;
    bool isShown() const override { return isOnPanel_ || (trayIcon_ && tray_.isPresent()); }
    void openMenu() override;

  private:
    /// The item's objects on one connection to the message bus, by which a panel identifies it.
    struct BusItem {
        BusItem(StatusItem &owner, freedesktop::BusConnection &bus);

        freedesktop::DBusMenuExporter menu;
        freedesktop::StatusNotifierItem item;
        freedesktop::StatusNotifierRegistration registration;
    };

    void handleBusChange();
    void prepareRegistration();
    void handleRegistration(freedesktop::RegistrationState state);
    void showInSystemTray();
    void handleTrayEnd();
    void paintIcon();
    QColor panelColour() const;
    void handleClick(QPoint position);
    void openMenuAt(QPoint position);

    x11::SystemTray tray_;
    drawing::SymbolImages symbols_;
    const std::function<void(const MenuCommand &)> perform_;
    qt::MenuRenderer popup_;
    freedesktop::SessionBus bus_;
    std::unique_ptr<BusItem> busItem_;
    bool isOnPanel_ = false;
    std::unique_ptr<QSystemTrayIcon> trayIcon_;
    std::optional<StatusIcon> icon_;
    QIcon painted_;
    std::string toolTip_;
};

/// The status area of the desktop's panel. Main thread.
class StatusBar : public platform::StatusBar {
  public:
    /// `events` outlives the bar and its items.
    explicit StatusBar(x11::XcbEvents &events) : events_(events) {}

    std::unique_ptr<platform::StatusItem>
    createItem(std::function<void(const MenuCommand &)> perform) override {
        return std::make_unique<StatusItem>(events_, std::move(perform));
    }

  private:
    x11::XcbEvents &events_;
};

} // namespace corvane::linux
