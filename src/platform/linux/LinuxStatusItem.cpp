#include "platform/linux/LinuxStatusItem.h"

#include "platform/linux/PanelColour.h"
#include "platform/linux/StatusIconImages.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace corvane::x11 {

namespace {

/// Every item is a client of its own on the bus: a panel knows an item by its connection.
QDBusConnection ownConnection() {
    static int items = 0;
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         QStringLiteral("status-item-%1").arg(++items));
}

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

LinuxStatusItem::LinuxStatusItem(XcbEvents &events,
                                 const std::function<void(const MenuCommand &)> &perform)
    : tray_(
          events, [this] { paintIcon(); }, [this] { trayVanished(); }),
      bus_(ownConnection()),
      popup_(symbols_, perform),
      panelMenu_(bus_, symbols_, perform),
      notifierItem_(bus_, panelMenu_.path(), [this](QPoint place) { openMenuFor(place); }),
      notifierHost_(bus_, [this](bool isPresent) { panelAnswered(isPresent); }) {}

LinuxStatusItem::~LinuxStatusItem() { QDBusConnection::disconnectFromBus(bus_.name()); }

std::optional<Size> LinuxStatusItem::buttonSize() const { return statusButtonSize; }

void LinuxStatusItem::setIcon(const StatusIcon &icon) {
    if (icon_ != icon) {
        icon_ = icon;
        paintIcon();
    }
}

void LinuxStatusItem::setMenu(const Menu &menu) {
    popup_.setMenu(menu);
    if (isOnPanel_) {
        panelMenu_.setMenu(menu);
    }
}

void LinuxStatusItem::setToolTip(const std::string &text) {
    toolTip_ = QString::fromStdString(text);
    notifierItem_.setToolTip(toolTip_);
    if (trayIcon_) {
        trayIcon_->setToolTip(toolTip_);
    }
}

void LinuxStatusItem::openMenu() {
    const auto place = trayIcon_ ? trayIcon_->geometry() : QRect();
    openMenuAt(place.isValid() ? place.center() : QCursor::pos());
}

/// Panels that do not say where they were clicked, such as MATE's, name the screen's corner.
void LinuxStatusItem::openMenuFor(QPoint click) {
    if (click.isNull()) {
        openMenu();
    } else {
        openMenuAt(click);
    }
}

void LinuxStatusItem::openMenuAt(QPoint place) {
    popup_.menu().popup(cornerWithRoom(popup_.menu(), place));
    popup_.menu().activateWindow();
}

void LinuxStatusItem::panelAnswered(bool isPresent) {
    isOnPanel_ = isPresent;
    paintIcon();
    if (!isPresent) {
        showInSystemTray();
        return;
    }
    trayIcon_.reset();
    notifierHost_.registerItem();
    // The panel asks for the menu in a later turn.
    panelMenu_.setMenu(popup_.shown());
}

void LinuxStatusItem::showInSystemTray() {
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

void LinuxStatusItem::trayVanished() {
    if (trayIcon_) {
        // The tray may have taken the icon's window with it.
        trayIcon_.reset();
        showInSystemTray();
    }
}

void LinuxStatusItem::paintIcon() {
    if (!icon_) {
        return;
    }
    const auto colour = panelColour(tray_);
    const auto images = statusIconImages(*icon_, colour, symbols_);
    if (images.isEmpty()) {
        return;
    }
    painted_ = QIcon();
    for (const auto &image : images) {
        painted_.addPixmap(QPixmap::fromImage(image));
    }
    notifierItem_.setIcon(images, QString::fromStdString(icon_->image.description));
    if (trayIcon_) {
        trayIcon_->setIcon(painted_);
    }
}

} // namespace corvane::x11
