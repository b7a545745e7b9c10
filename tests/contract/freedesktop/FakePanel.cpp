#include "FakePanel.h"

#include "EventLoop.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QTimer>

namespace corvane::contract {

namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");
const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuPath = QStringLiteral("/MenuBar");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

freedesktop::PanelItemLayout find(const freedesktop::PanelItemLayout &layout,
                                  const QString &label) {
    if (layout.properties.value(QStringLiteral("label")).toString() == label) {
        return layout;
    }
    for (const auto &child : layout.children) {
        const auto found = find(child, label);
        if (found.id != 0) {
            return found;
        }
    }
    return {};
}

} // namespace

FakePanel::FakePanel(bool hasHost)
    : bus_(
          QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("fake-panel"))),
      hasHost_(hasHost) {
    freedesktop::registerPanelMenuTypes();
    freedesktop::registerNotifierTypes();
    bus_.registerObject(path, this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
    bus_.connect(QString(), menuPath, menuInterface, QStringLiteral("LayoutUpdated"), this,
                 SLOT(layoutUpdated()));
    bus_.connect(QString(), menuPath, menuInterface, QStringLiteral("ItemsPropertiesUpdated"), this,
                 SLOT(propertiesUpdated(QList<corvane::freedesktop::PanelItemProperties>,
                                        QList<corvane::freedesktop::PanelItemNames>)));
    bus_.connect(QString(), itemPath, itemInterface, QStringLiteral("NewIcon"), this,
                 SLOT(iconChanged()));
    bus_.connect(QString(), itemPath, itemInterface, QStringLiteral("NewToolTip"), this,
                 SLOT(toolTipChanged()));
    bus_.registerService(service);
}

FakePanel::~FakePanel() { QDBusConnection::disconnectFromBus(bus_.name()); }

void FakePanel::addHost() {
    hasHost_ = true;
    bus_.send(
        QDBusMessage::createSignal(path, service, QStringLiteral("StatusNotifierHostRegistered")));
}

QVariant FakePanel::itemProperty(const QString &name) {
    const auto reply = call(itemPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                            QStringLiteral("Get"), {itemInterface, name});
    return reply.reply().arguments().value(0).value<QDBusVariant>().variant();
}

QList<freedesktop::NotifierPixmap> FakePanel::iconPixmaps() {
    return qdbus_cast<QList<freedesktop::NotifierPixmap>>(
        itemProperty(QStringLiteral("IconPixmap")));
}

freedesktop::PanelItemLayout FakePanel::layout() {
    const auto reply =
        call(menuPath, menuInterface, QStringLiteral("GetLayout"), {0, -1, QStringList()});
    return qdbus_cast<freedesktop::PanelItemLayout>(reply.reply().arguments().value(1));
}

freedesktop::PanelItemLayout FakePanel::line(const QString &label) { return find(layout(), label); }

bool FakePanel::choose(int id) {
    return callMenu(QStringLiteral("Event"),
                    {id, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), 0U});
}

bool FakePanel::callMenu(const QString &method, const QVariantList &arguments) {
    return !call(menuPath, menuInterface, method, arguments).isError();
}

void FakePanel::activate(int x, int y) {
    call(itemPath, itemInterface, QStringLiteral("Activate"), {x, y});
}

void FakePanel::RegisterStatusNotifierItem(const QString &item) { items_ << item; }

void FakePanel::propertiesUpdated(const QList<freedesktop::PanelItemProperties> &updated,
                                  const QList<freedesktop::PanelItemNames> & /*removed*/) {
    updates_ << updated;
}

QDBusPendingCall FakePanel::call(const QString &objectPath, const QString &interface,
                                 const QString &method, const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(items_.isEmpty() ? QString() : items_.last(),
                                                  objectPath, interface, method);
    message.setArguments(arguments);
    auto pending = bus_.asyncCall(message);
    turnUntil([&pending] { return pending.isFinished(); });
    // What the item sent before its answer has arrived too; let it be delivered.
    bool isDelivered = false;
    QTimer::singleShot(0, this, [&isDelivered] { isDelivered = true; });
    turnUntil([&isDelivered] { return isDelivered; });
    return pending;
}

} // namespace corvane::contract
