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

namespace corvane::linux {

/// The status item on whatever panel the desktop has: by preference as a status notifier item,
/// whose menu the panel draws, else in the X server's system tray with a menu of our own. A panel
/// and the message bus may come, go or restart at any time. Panels show no text beside an item: the
/// icon's title is not drawn.
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
    /// What panels find on the message bus: a panel knows an item by its connection.
    struct BusItem {
        BusItem(StatusItem &owner, const QDBusConnection &bus);

        freedesktop::DBusMenuExporter menu;
        freedesktop::StatusNotifierItem item;
        freedesktop::StatusNotifierRegistration host;
    };

    void busChanged();
    void panelWillRead();
    void panelAnswered(freedesktop::PanelAnswer answer);
    void showInSystemTray();
    void trayVanished();
    void paintIcon();
    void openMenuFor(QPoint click);
    void openMenuAt(QPoint place);

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
    QString toolTip_;
};

} // namespace corvane::linux
