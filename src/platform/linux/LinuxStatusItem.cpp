#include "platform/linux/LinuxStatusItem.h"

#include "platform/linux/PanelColour.h"
#include "platform/linux/StatusIconImages.h"

#include <QCursor>

#include <utility>

namespace corvane::x11 {

namespace {

/// Every item is a client of its own on the bus: a panel knows an item by its connection.
QDBusConnection ownConnection() {
    static int items = 0;
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         QStringLiteral("status-item-%1").arg(++items));
}

} // namespace

LinuxStatusItem::LinuxStatusItem(XcbEvents &events,
                                 std::function<void(const MenuCommand &)> perform)
    : events_(events),
      subscription_(events.subscribe([this](const xcb_generic_event_t &event) { receive(event); })),
      bus_(ownConnection()),
      popup_(symbols_, perform),
      panelMenu_(bus_, symbols_, perform),
      notifierItem_(bus_, panelMenu_.path(), [this](QPoint place) { openMenuAt(place); }),
      notifierHost_(bus_, [this](bool isPresent) { panelAnswered(isPresent); }) {
    watchSystemTray();
}

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

void LinuxStatusItem::openMenuAt(QPoint place) {
    popup_.menu().popup(place);
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
    panelMenu_.setMenu(popup_.shown());
    notifierHost_.registerItem();
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

void LinuxStatusItem::watchSystemTray() {
    const auto &connection = events_.connection();
    const XcbReply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection.get(), xcb_get_window_attributes(connection.get(), connection.root()), nullptr));
    if (!reply) {
        return;
    }
    // The mask belongs to the whole connection: keep what others have asked for.
    const std::uint32_t mask = reply->your_event_mask | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &mask);
}

void LinuxStatusItem::receive(const xcb_generic_event_t &event) {
    if (XcbEvents::typeOf(event) != XCB_CLIENT_MESSAGE) {
        return;
    }
    const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
    if (message.type == managerAtom_) {
        paintIcon();
    }
}

void LinuxStatusItem::paintIcon() {
    if (!icon_) {
        return;
    }
    const auto colour = panelColour(events_.connection());
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
