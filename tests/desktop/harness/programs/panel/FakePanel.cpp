#include "FakePanel.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QEventLoop>
#include <QTimer>

#include <utility>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;
const QString itemPath = u"/StatusNotifierItem"_s;
const QString itemInterface = u"org.kde.StatusNotifierItem"_s;
const QString menuPath = u"/MenuBar"_s;
const QString menuInterface = u"com.canonical.dbusmenu"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

/// A process may have several panels, one after the other or at once.
QString nextConnectionName() {
    static int panels = 0;
    return u"fake-panel-%1"_s.arg(++panels);
}

QDBusMessage refusalOf(const QDBusMessage &call) {
    return call.createErrorReply(QDBusError::Failed, u"not now"_s);
}

/// Reads (ia{sv}av).
PanelMenuItem readItem(const QDBusArgument &argument) {
    PanelMenuItem item;
    argument.beginStructure();
    argument >> item.id >> item.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        item.children.push_back(readItem(child.variant().value<QDBusArgument>()));
    }
    argument.endArray();
    argument.endStructure();
    return item;
}

/// Reads a(ia{sv}).
QList<PanelMenuItem> readUpdates(const QDBusArgument &argument) {
    QList<PanelMenuItem> updates;
    argument.beginArray();
    while (!argument.atEnd()) {
        PanelMenuItem update;
        argument.beginStructure();
        argument >> update.id >> update.properties;
        argument.endStructure();
        updates << update;
    }
    argument.endArray();
    return updates;
}

/// Reads a(iiay).
QList<PanelPixmap> readPixmaps(const QDBusArgument &argument) {
    QList<PanelPixmap> pixmaps;
    argument.beginArray();
    while (!argument.atEnd()) {
        PanelPixmap pixmap;
        argument.beginStructure();
        argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
        argument.endStructure();
        pixmaps << pixmap;
    }
    argument.endArray();
    return pixmaps;
}

} // namespace

QString PanelMenuItem::label() const { return properties.value(u"label"_s).toString(); }

PanelMenuItem PanelMenuItem::find(const QString &label) const {
    for (const PanelMenuItem &child : children) {
        if (child.label() == label) {
            return child;
        }
        if (auto found = child.find(label); found.id != 0) {
            return found;
        }
    }
    return {};
}

FakePanel::FakePanel(Reply reply)
    : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, nextConnectionName())),
      reply_(reply) {
    bus_.registerVirtualObject(watcherPath, this);
    for (const auto &[path, interface] :
         {std::pair(itemPath, itemInterface), std::pair(menuPath, menuInterface)}) {
        bus_.connect({}, path, interface, {}, this, SLOT(countSignal(QDBusMessage)));
    }
    isPresent_ = bus_.registerService(watcherService);
}

FakePanel::~FakePanel() { QDBusConnection::disconnectFromBus(bus_.name()); }

void FakePanel::resign() {
    bus_.unregisterService(watcherService);
    isPresent_ = false;
}

void FakePanel::addHost() {
    reply_ = Reply::yes;
    bus_.send(
        QDBusMessage::createSignal(watcherPath, watcherService, u"StatusNotifierHostRegistered"_s));
}

int FakePanel::requests() const {
    int all = 0;
    for (const auto &[client, count] : requests_) {
        all += count;
    }
    return all;
}

int FakePanel::requestsOf(const QString &client) const {
    const auto found = requests_.find(client);
    return found == requests_.end() ? 0 : found->second;
}

QVariant FakePanel::itemProperty(const QString &name) {
    const auto reply = call(itemPath, propertiesInterface, u"Get"_s, {itemInterface, name});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QList<PanelPixmap> FakePanel::iconPixmaps() {
    return readPixmaps(itemProperty(u"IconPixmap"_s).value<QDBusArgument>());
}

QString FakePanel::toolTipTitle() {
    const auto argument = itemProperty(u"ToolTip"_s).value<QDBusArgument>();
    QString iconName;
    QString title;
    argument.beginStructure();
    argument >> iconName;
    readPixmaps(argument);
    argument >> title;
    argument.endStructure();
    return title;
}

PanelMenuItem FakePanel::menu() {
    const auto reply = call(menuPath, menuInterface, u"GetLayout"_s, {0, -1, QStringList()});
    return reply.arguments().size() == 2 ? readItem(reply.arguments().at(1).value<QDBusArgument>())
                                         : PanelMenuItem{};
}

bool FakePanel::choose(int id) {
    return callMenu(u"Event"_s, {id, u"clicked"_s, QVariant::fromValue(QDBusVariant(0)), 0U});
}

bool FakePanel::callMenu(const QString &method, const QVariantList &arguments) {
    return call(menuPath, menuInterface, method, arguments).type() == QDBusMessage::ReplyMessage;
}

void FakePanel::activate(int x, int y) { call(itemPath, itemInterface, u"Activate"_s, {x, y}); }

QString FakePanel::introspection(const QString &path) {
    return call(path, u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s, {})
        .arguments()
        .value(0)
        .toString();
}

int FakePanel::signalCount(const QString &name) const {
    const auto found = signals_.find(name);
    return found == signals_.end() ? 0 : found->second;
}

QString FakePanel::introspect(const QString & /*path*/) const {
    return u"<interface name=\"%1\">"
           "<property name=\"IsStatusNotifierHostRegistered\" type=\"b\" access=\"read\"/>"
           "</interface>"_s.arg(watcherService);
}

bool FakePanel::handleMessage(const QDBusMessage &message, const QDBusConnection & /*bus*/) {
    if (message.member() == u"RegisterStatusNotifierItem") {
        registerItem(message);
    } else if (message.member() == u"Get") {
        replyToRequest(message);
    } else {
        bus_.send(refusalOf(message));
    }
    return true;
}

void FakePanel::registerItem(const QDBusMessage &request) {
    ++registrations_;
    if (!takesItems_) {
        bus_.send(refusalOf(request));
        return;
    }
    items_ << request.service();
    bus_.send(request.createReply());
    if (onRegistration_) {
        onRegistration_();
    }
}

void FakePanel::replyToRequest(const QDBusMessage &request) {
    ++requests_[request.service()];
    const auto special = replies_.find(request.service());
    const Reply reply = special == replies_.end() ? reply_ : special->second;
    if (reply == Reply::error) {
        bus_.send(refusalOf(request));
    } else if (reply != Reply::none) {
        bus_.send(request.createReply(QVariant::fromValue(QDBusVariant(reply == Reply::yes))));
    }
    if (afterReply_) {
        std::exchange(afterReply_, {})();
    }
}

void FakePanel::countSignal(const QDBusMessage &signal) {
    ++signals_[signal.member()];
    if (signal.member() == u"ItemsPropertiesUpdated") {
        updates_ << readUpdates(signal.arguments().value(0).value<QDBusArgument>());
    }
}

QDBusMessage FakePanel::call(const QString &path, const QString &interface, const QString &method,
                             const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(items_.isEmpty() ? QString() : items_.last(),
                                                  path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCallWatcher reply(bus_.asyncCall(message));
    QEventLoop loop;
    connect(&reply, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!reply.isFinished()) {
        loop.exec();
    }
    // Signals that the item sent before its reply are queued by now; deliver them too.
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    return reply.reply();
}

} // namespace corvane::desktop
