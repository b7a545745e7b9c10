#include "platform/linux/StatusItem.h"

#include "platform/drawing/StatusIconImages.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QPalette>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace corvane::linux {

namespace {

/// The origin at which the whole menu fits on the screen: below `position`, else above it. QMenu by
/// itself would stay between the position and the panel, and scroll.
QPoint originThatFits(QMenu &menu, QPoint position) {
    const QScreen *screen = QGuiApplication::screenAt(position);
    if (screen == nullptr) {
        return position;
    }
    menu.ensurePolished();
    const QRect available = screen->availableGeometry();
    const QSize size = menu.sizeHint();
    const int bottom = std::min(position.y(), available.bottom() + 1);
    const bool fitsBelow = position.y() + size.height() <= available.bottom() + 1;
    return {std::min(position.x(), available.right() + 1 - size.width()),
            fitsBelow ? position.y() : std::max(available.top(), bottom - size.height())};
}

bool isDesktop(QLatin1String name) {
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(name);
}

} // namespace

StatusItem::BusItem::BusItem(StatusItem &owner, freedesktop::BusConnection &bus)
    : menu(bus, owner.perform_),
      item(bus, menu.path(), [&owner](QPoint position) { owner.handleClick(position); }),
      registration(bus, {.willRegister = [&owner] { owner.prepareRegistration(); },
                         .changed =
                             [&owner](freedesktop::RegistrationState state) {
                                 owner.handleRegistration(state);
                             }}) {}

StatusItem::StatusItem(x11::XcbEvents &events, std::function<void(const MenuCommand &)> perform)
    : tray_(
          events, [this] { paintIcon(); }, [this] { handleTrayEnd(); }),
      perform_(std::move(perform)),
      popup_(symbols_, perform_),
      bus_([this] { handleBusChange(); }) {
    busItem_ = std::make_unique<BusItem>(*this, bus_.connection());
}

/// A new connection to the bus needs new objects. Without a bus, their registration finds that
/// there is no panel.
void StatusItem::handleBusChange() {
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
    if (text == toolTip_) {
        return;
    }
    toolTip_ = text;
    busItem_->item.setToolTip(toolTip_);
    if (trayIcon_) {
        trayIcon_->setToolTip(QString::fromStdString(toolTip_));
    }
}

void StatusItem::openMenu() {
    const QRect icon = trayIcon_ ? trayIcon_->geometry() : QRect();
    openMenuAt(icon.isValid() ? icon.center() : QCursor::pos());
}

/// Panels that do not report where they were clicked, such as MATE's, send (0, 0).
void StatusItem::handleClick(QPoint position) {
    if (position.isNull()) {
        openMenu();
    } else {
        openMenuAt(position);
    }
}

void StatusItem::openMenuAt(QPoint position) {
    QMenu &menu = popup_.menu();
    menu.popup(originThatFits(menu, position));
    menu.activateWindow();
}

void StatusItem::prepareRegistration() {
    paintIcon();
    busItem_->menu.setMenu(popup_.newest());
}

/// Beside an unresponsive panel there is no icon in the system tray either: QSystemTrayIcon would
/// call that panel itself and block for half a minute.
void StatusItem::handleRegistration(freedesktop::RegistrationState state) {
    isOnPanel_ = state == freedesktop::RegistrationState::registered;
    if (isOnPanel_) {
        trayIcon_.reset();
        busItem_->menu.setMenu(popup_.newest());
    } else if (state == freedesktop::RegistrationState::unavailable) {
        paintIcon();
        showInSystemTray();
    }
}

void StatusItem::showInSystemTray() {
    if (trayIcon_) {
        return;
    }
    trayIcon_ = std::make_unique<QSystemTrayIcon>(painted_);
    trayIcon_->setToolTip(QString::fromStdString(toolTip_));
    trayIcon_->setContextMenu(&popup_.menu());
    QObject::connect(trayIcon_.get(), &QSystemTrayIcon::activated, trayIcon_.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) {
                             openMenu();
                         }
                     });
    trayIcon_->show();
}

void StatusItem::handleTrayEnd() {
    if (trayIcon_) {
        // The tray may have destroyed the icon's window with its own.
        trayIcon_.reset();
        showInSystemTray();
    }
}

void StatusItem::paintIcon() {
    if (!icon_) {
        return;
    }
    const auto images = drawing::statusIconImages(*icon_, panelColour(), symbols_);
    if (images.isEmpty()) {
        return;
    }
    painted_ = QIcon();
    for (const auto &image : images) {
        painted_.addPixmap(QPixmap::fromImage(image));
    }
    busItem_->item.setIcon(images, icon_->image.description);
    if (trayIcon_) {
        trayIcon_->setIcon(painted_);
    }
}

/// The foreground colour of the panel: as the tray publishes it, else as the desktop is known to
/// have it, else one that is visible on light and on dark.
QColor StatusItem::panelColour() const {
    if (const auto foreground = tray_.foreground()) {
        return *foreground;
    }
    if (isDesktop(QLatin1String("GNOME")) || isDesktop(QLatin1String("Unity"))) {
        return Qt::white;
    }
    if (isDesktop(QLatin1String("KDE"))) {
        return QGuiApplication::palette().color(QPalette::WindowText);
    }
    return {0x3d, 0x84, 0xf5};
}

} // namespace corvane::linux
