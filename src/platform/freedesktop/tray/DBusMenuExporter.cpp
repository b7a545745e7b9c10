#include "platform/freedesktop/tray/DBusMenuExporter.h"

#include "platform/drawing/MenuText.h"
#include "presentation/MenuAlignment.h"

#include <QBuffer>
#include <QDBusVariant>
#include <QTimer>

#include <iterator>
#include <utility>

namespace corvane::freedesktop {

namespace {

/// The panel draws the menu in colours that nobody tells us: a grey that shows on light and dark.
const QColor imageColour(0x82, 0x82, 0x86);
constexpr int imagePixels = 32;

QByteArray png(const QImage &image) {
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    // A drawing of a few lines is small however little time is spent on it.
    constexpr int quickly = 80;
    image.save(&buffer, "PNG", quickly);
    return data;
}

QVariantMap named(const QVariantMap &properties, const QStringList &names) {
    if (names.isEmpty()) {
        return properties;
    }
    QVariantMap wanted;
    for (const auto &name : names) {
        if (properties.contains(name)) {
            wanted.insert(name, properties.value(name));
        }
    }
    return wanted;
}

} // namespace

DBusMenuExporter::DBusMenuExporter(const QDBusConnection &connection,
                                   drawing::SymbolImages &symbols,
                                   std::function<void(const MenuCommand &)> perform)
    : DBusObject(connection, QStringLiteral("/MenuBar"), QStringLiteral("com.canonical.dbusmenu")),
      symbols_(symbols),
      perform_(std::move(perform)) {
    registerPanelMenuTypes();
    root_.properties.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
}

void DBusMenuExporter::setMenu(const Menu &menu) {
    Changes changes;
    patchChildren(root_, shown_.items, menu.items, changes);
    send(changes);
}

DBusMenuExporter::Node DBusMenuExporter::makeNode(const MenuItem &item) {
    Node node{.id = ++lastId_,
              .command = {item.action, item.representedObject},
              .isEnabled = item.isEnabled,
              .properties = propertiesOf(item)};
    for (const auto &child : item.submenu.value_or(std::vector<MenuItem>{})) {
        node.children.push_back(makeNode(child));
    }
    return node;
}

void DBusMenuExporter::patch(Node &node, MenuItem &from, const MenuItem &to, Changes &changes) {
    if (from == to) {
        return;
    }
    node.command = {to.action, to.representedObject};
    node.isEnabled = to.isEnabled;
    patchProperties(node, propertiesOf(to), changes);
    if (from.submenu && to.submenu) {
        patchChildren(node, *from.submenu, *to.submenu, changes);
    }
    from = to;
}

void DBusMenuExporter::patchProperties(Node &node, const QVariantMap &properties,
                                       Changes &changes) {
    const auto before = std::exchange(node.properties, properties);
    PanelItemProperties updated{.id = node.id};
    for (auto property = properties.cbegin(); property != properties.cend(); ++property) {
        if (before.value(property.key()) != property.value()) {
            updated.properties.insert(property.key(), property.value());
        }
    }
    if (!updated.properties.isEmpty()) {
        changes.updated << updated;
    }
    PanelItemNames removed{.id = node.id};
    for (auto property = before.cbegin(); property != before.cend(); ++property) {
        if (!properties.contains(property.key())) {
            removed.names << property.key();
        }
    }
    if (!removed.names.isEmpty()) {
        changes.removed << removed;
    }
}

void DBusMenuExporter::patchChildren(Node &node, std::vector<MenuItem> &from,
                                     const std::vector<MenuItem> &to, Changes &changes) {
    const auto alignment = alignMenu(from, to);
    const auto gapEnd = alignment.leading + alignment.removed;
    for (std::size_t index = 0; index < from.size(); ++index) {
        if (index < alignment.leading) {
            patch(node.children[index], from[index], to[index], changes);
        } else if (index >= gapEnd) {
            patch(node.children[index], from[index],
                  to[index - alignment.removed + alignment.inserted], changes);
        }
    }
    if (alignment.isSameLayout()) {
        return;
    }
    const auto gap = node.children.begin() + static_cast<std::ptrdiff_t>(alignment.leading);
    auto behind = node.children.erase(gap, gap + static_cast<std::ptrdiff_t>(alignment.removed));
    for (auto index = alignment.leading; index < alignment.leading + alignment.inserted; ++index) {
        behind = std::next(node.children.insert(behind, makeNode(to[index])));
    }
    changes.layouts << node.id;
    from = to;
}

void DBusMenuExporter::send(const Changes &changes) {
    if (!changes.updated.isEmpty() || !changes.removed.isEmpty()) {
        emitSignal(QStringLiteral("ItemsPropertiesUpdated"),
                   {QVariant::fromValue(changes.updated), QVariant::fromValue(changes.removed)});
    }
    for (const auto id : changes.layouts) {
        emitSignal(QStringLiteral("LayoutUpdated"), {++revision_, id});
    }
}

QVariantMap DBusMenuExporter::propertiesOf(const MenuItem &item) {
    if (item.isSeparator) {
        return {{QStringLiteral("type"), QStringLiteral("separator")}};
    }
    const auto text = drawing::menuText(item);
    QVariantMap properties{{QStringLiteral("label"), drawing::panelLabel(text)},
                           {QStringLiteral("enabled"), item.isEnabled}};
    if (!text.keys.isEmpty()) {
        properties.insert(QStringLiteral("shortcut"),
                          QVariant::fromValue(QList<QStringList>{drawing::panelKeys(text)}));
    }
    if (item.isOn) {
        properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
        properties.insert(QStringLiteral("toggle-state"), 1);
    }
    if (item.image) {
        const QByteArray image = imageData(item.image->name);
        if (!image.isEmpty()) {
            properties.insert(QStringLiteral("icon-data"), image);
        }
    }
    if (item.submenu) {
        properties.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    }
    return properties;
}

QByteArray DBusMenuExporter::imageData(const std::string &symbol) {
    const auto known = imageData_.find(symbol);
    if (known != imageData_.end()) {
        return known->second;
    }
    const QImage image = symbols_.image(symbol, imageColour, imagePixels);
    return imageData_.emplace(symbol, image.isNull() ? QByteArray() : png(image)).first->second;
}

DBusObject::Signatures DBusMenuExporter::methods() const {
    return {{QStringLiteral("GetLayout"), QStringLiteral("iias")},
            {QStringLiteral("GetGroupProperties"), QStringLiteral("aias")},
            {QStringLiteral("GetProperty"), QStringLiteral("is")},
            {QStringLiteral("Event"), QStringLiteral("isvu")},
            {QStringLiteral("EventGroup"), QStringLiteral("a(isvu)")},
            {QStringLiteral("AboutToShow"), QStringLiteral("i")},
            {QStringLiteral("AboutToShowGroup"), QStringLiteral("ai")}};
}

std::optional<QVariantList> DBusMenuExporter::call(const QString &method,
                                                   const QVariantList &arguments) {
    if (method == QLatin1String("GetLayout")) {
        return getLayout(arguments);
    }
    if (method == QLatin1String("GetGroupProperties")) {
        return getGroupProperties(arguments);
    }
    if (method == QLatin1String("GetProperty")) {
        return getProperty(arguments);
    }
    if (method == QLatin1String("Event")) {
        return event(arguments);
    }
    if (method == QLatin1String("EventGroup")) {
        return eventGroup(arguments);
    }
    if (method == QLatin1String("AboutToShow")) {
        return QVariantList{false};
    }
    if (method == QLatin1String("AboutToShowGroup")) {
        return QVariantList{QVariant::fromValue(QList<int>{}), QVariant::fromValue(QList<int>{})};
    }
    return std::nullopt;
}

QVariantMap DBusMenuExporter::properties() const {
    return {{QStringLiteral("Version"), 3U},
            {QStringLiteral("Status"), QStringLiteral("normal")},
            {QStringLiteral("TextDirection"), QStringLiteral("ltr")},
            {QStringLiteral("IconThemePath"), QStringList{}}};
}

std::optional<QVariantList> DBusMenuExporter::getLayout(const QVariantList &arguments) const {
    const auto *node = find(root_, arguments.value(0).toInt());
    if (!node) {
        return std::nullopt;
    }
    const auto depth = arguments.value(1, -1).toInt();
    const auto names = arguments.value(2).toStringList();
    return QVariantList{revision_, QVariant::fromValue(layout(*node, depth, names))};
}

std::optional<QVariantList>
DBusMenuExporter::getGroupProperties(const QVariantList &arguments) const {
    const auto names = arguments.value(1).toStringList();
    QList<PanelItemProperties> answers;
    for (const auto id : qdbus_cast<QList<int>>(arguments.value(0))) {
        if (const auto *node = find(root_, id)) {
            answers << PanelItemProperties{id, named(node->properties, names)};
        }
    }
    return QVariantList{QVariant::fromValue(answers)};
}

std::optional<QVariantList> DBusMenuExporter::getProperty(const QVariantList &arguments) const {
    const auto *node = find(root_, arguments.value(0).toInt());
    const auto name = arguments.value(1).toString();
    if (!node || !node->properties.contains(name)) {
        return std::nullopt;
    }
    return QVariantList{QVariant::fromValue(QDBusVariant(node->properties.value(name)))};
}

std::optional<QVariantList> DBusMenuExporter::event(const QVariantList &arguments) {
    if (!receive(arguments.value(0).toInt(), arguments.value(1).toString())) {
        return std::nullopt;
    }
    return QVariantList{};
}

std::optional<QVariantList> DBusMenuExporter::eventGroup(const QVariantList &arguments) {
    const auto events = arguments.value(0).value<QDBusArgument>();
    QList<int> unknown;
    events.beginArray();
    while (!events.atEnd()) {
        int id = 0;
        QString eventName;
        QDBusVariant data;
        uint timestamp = 0;
        events.beginStructure();
        events >> id >> eventName >> data >> timestamp;
        events.endStructure();
        if (!receive(id, eventName)) {
            unknown << id;
        }
    }
    events.endArray();
    return QVariantList{QVariant::fromValue(unknown)};
}

bool DBusMenuExporter::receive(int id, const QString &eventName) {
    const auto *node = find(root_, id);
    if (!node) {
        return false;
    }
    if (eventName == QLatin1String("clicked") && node->isEnabled && !node->command.action.empty()) {
        QTimer::singleShot(0, this,
                           [perform = perform_, command = node->command] { perform(command); });
    }
    return true;
}

const DBusMenuExporter::Node *DBusMenuExporter::find(const Node &node, int id) {
    if (node.id == id) {
        return &node;
    }
    for (const auto &child : node.children) {
        if (const auto *found = find(child, id)) {
            return found;
        }
    }
    return nullptr;
}

PanelItemLayout DBusMenuExporter::layout(const Node &node, int depth, const QStringList &names) {
    PanelItemLayout answer{node.id, named(node.properties, names), {}};
    if (depth != 0) {
        for (const auto &child : node.children) {
            answer.children << layout(child, depth < 0 ? depth : depth - 1, names);
        }
    }
    return answer;
}

QString DBusMenuExporter::introspect(const QString & /*path*/) const {
    return QStringLiteral(R"xml(<interface name="com.canonical.dbusmenu">
  <property name="Version" type="u" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="TextDirection" type="s" access="read"/>
  <property name="IconThemePath" type="as" access="read"/>
  <method name="GetLayout">
    <arg name="parentId" type="i" direction="in"/>
    <arg name="recursionDepth" type="i" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="revision" type="u" direction="out"/>
    <arg name="layout" type="(ia{sv}av)" direction="out"/>
  </method>
  <method name="GetGroupProperties">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="properties" type="a(ia{sv})" direction="out"/>
  </method>
  <method name="GetProperty">
    <arg name="id" type="i" direction="in"/>
    <arg name="name" type="s" direction="in"/>
    <arg name="value" type="v" direction="out"/>
  </method>
  <method name="Event">
    <arg name="id" type="i" direction="in"/>
    <arg name="eventId" type="s" direction="in"/>
    <arg name="data" type="v" direction="in"/>
    <arg name="timestamp" type="u" direction="in"/>
  </method>
  <method name="EventGroup">
    <arg name="events" type="a(isvu)" direction="in"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <method name="AboutToShow">
    <arg name="id" type="i" direction="in"/>
    <arg name="needUpdate" type="b" direction="out"/>
  </method>
  <method name="AboutToShowGroup">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="updatesNeeded" type="ai" direction="out"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <signal name="ItemsPropertiesUpdated">
    <arg name="updatedProps" type="a(ia{sv})"/>
    <arg name="removedProps" type="a(ias)"/>
  </signal>
  <signal name="LayoutUpdated">
    <arg name="revision" type="u"/>
    <arg name="parent" type="i"/>
  </signal>
</interface>
)xml");
}

} // namespace corvane::freedesktop
