#include "platform/linux/StatusItem.h"

#include "platform/drawing/StatusIconImages.h"
#include "platform/linux/PanelColour.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace corvane::linux {

namespace {

/// Where the menu opens at `place` with all its lines on the screen: below it, else above. Left to
/// itself the menu would stay between the place and the panel, and scroll.
QPoint cornerWithRoom(QMenu &menu, QPoint place) {
    const QScreen *screen = QGuiApplication::screenAt(place);
    if (screen == nullptr) {
        return place;
    }
    menu.ensurePolished();
    const QRect room = screen->availableGeometry();
    const QSize size = menu.sizeHint();
    const int bottom = std::min(place.y(), room.bottom() + 1);
    const bool fitsBelow = place.y() + size.height() <= room.bottom() + 1;
    return {std::min(place.x(), room.right() + 1 - size.width()),
            fitsBelow ? place.y() : std::max(room.top(), bottom - size.height())};
}

} // namespace

StatusItem::BusItem::BusItem(StatusItem &owner, const QDBusConnection &bus)
    : menu(bus, owner.symbols_, owner.perform_),
      item(bus, menu.path(), [&owner](QPoint place) { owner.openMenuFor(place); }),
      host(bus, {.willRegister = [&owner] { owner.panelWillRead(); },
                 .answered =
                     [&owner](freedesktop::PanelAnswer answer) { owner.panelAnswered(answer); }}) {}

StatusItem::StatusItem(x11::XcbEvents &events, std::function<void(const MenuCommand &)> perform)
    : tray_(
          events, [this] { paintIcon(); }, [this] { trayVanished(); }),
      perform_(std::move(perform)),
      popup_(symbols_, perform_),
      bus_([this] { busChanged(); }) {
    busItem_ = std::make_unique<BusItem>(*this, bus_.connection());
}

/// On another bus the item is a new one; without any, it learns that there is no panel.
void StatusItem::busChanged() {
    busItem_ = std::make_unique<BusItem>(*this, bus_.connection());
    busItem_->item.setToolTip(toolTip_);
    isOnPanel_ = false;
    paintIcon();
}

std::optional<Size> StatusItem::buttonSize() const { return drawing::statusButtonSize; }

void StatusItem::setIcon(const StatusIcon &icon) {
    if (icon_ != icon) {
        icon_ = icon;
        paintIcon();
    }
}

void StatusItem::setMenu(const Menu &menu) {
    popup_.setMenu(menu);
    if (isOnPanel_) {
        busItem_->menu.setMenu(menu);
    }
}

void StatusItem::setToolTip(const std::string &text) {
    const QString toolTip = QString::fromStdString(text);
    if (toolTip == toolTip_) {
        return;
    }
    toolTip_ = toolTip;
    busItem_->item.setToolTip(toolTip_);
    if (trayIcon_) {
        trayIcon_->setToolTip(toolTip_);
    }
}

void StatusItem::openMenu() {
    const auto place = trayIcon_ ? trayIcon_->geometry() : QRect();
    openMenuAt(place.isValid() ? place.center() : QCursor::pos());
}

/// Panels that do not say where they were clicked, such as MATE's, name the screen's corner.
void StatusItem::openMenuFor(QPoint click) {
    if (click.isNull()) {
        openMenu();
    } else {
        openMenuAt(click);
    }
}

void StatusItem::openMenuAt(QPoint place) {
    QMenu &menu = popup_.menu();
    menu.popup(cornerWithRoom(menu, place));
    menu.activateWindow();
}

void StatusItem::panelWillRead() {
    paintIcon();
    busItem_->menu.setMenu(popup_.newest());
}

/// Where a panel is silent there is no icon in the system tray either: to make one, the toolkit
/// would ask that panel itself, and wait half a minute for the answer.
void StatusItem::panelAnswered(freedesktop::PanelAnswer answer) {
    isOnPanel_ = answer == freedesktop::PanelAnswer::shown;
    if (answer == freedesktop::PanelAnswer::shown) {
        trayIcon_.reset();
        busItem_->menu.setMenu(popup_.newest());
    } else if (answer == freedesktop::PanelAnswer::none) {
        paintIcon();
        showInSystemTray();
    }
}

void StatusItem::showInSystemTray() {
    if (trayIcon_) {
        return;
    }
    trayIcon_ = std::make_unique<QSystemTrayIcon>(painted_);
    trayIcon_->setToolTip(toolTip_);
    trayIcon_->setContextMenu(&popup_.menu());
    QObject::connect(trayIcon_.get(), &QSystemTrayIcon::activated, trayIcon_.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) {
                             openMenu();
                         }
                     });
    trayIcon_->show();
}

void StatusItem::trayVanished() {
    if (trayIcon_) {
        // The tray may have taken the icon's window with it.
        trayIcon_.reset();
        showInSystemTray();
    }
}

void StatusItem::paintIcon() {
    if (!icon_) {
        return;
    }
    const auto colour = panelColour(tray_);
    const auto images = drawing::statusIconImages(*icon_, colour, symbols_);
    if (images.isEmpty()) {
        return;
    }
    painted_ = QIcon();
    for (const auto &image : images) {
        painted_.addPixmap(QPixmap::fromImage(image));
    }
    busItem_->item.setIcon(images, QString::fromStdString(icon_->image.description));
    if (trayIcon_) {
        trayIcon_->setIcon(painted_);
    }
}

} // namespace corvane::linux
