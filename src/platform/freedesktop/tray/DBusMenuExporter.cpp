#include "platform/freedesktop/tray/DBusMenuExporter.h"

#include "platform/drawing/MenuText.h"
#include "presentation/MenuAlignment.h"

#include <QBuffer>
#include <QDBusVariant>
#include <QTimer>

#include <iterator>
#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// (ia{sv}): an item and some of its properties.
struct ItemProperties {
    int id = 0;
    QVariantMap properties;
};

/// (ias): an item and the names of properties that have their default value again.
struct RemovedProperties {
    int id = 0;
    QStringList names;
};

/// (ia{sv}av): an item with its submenu.
struct ItemLayout {
    int id = 0;
    QVariantMap properties;
    QList<ItemLayout> children;
};

QDBusArgument &operator<<(QDBusArgument &argument, const ItemProperties &value) {
    argument.beginStructure();
    argument << value.id << value.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const RemovedProperties &value) {
    argument.beginStructure();
    argument << value.id << value.names;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const ItemLayout &value) {
    argument.beginStructure();
    argument << value.id << value.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const auto &child : value.children) {
        argument << QDBusVariant(QVariant::fromValue(child));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

void registerTypes() {
    registerSentType<ItemProperties>();
    registerSentType<RemovedProperties>();
    registerSentType<ItemLayout>();
    registerSentType<QList<ItemProperties>>();
    registerSentType<QList<RemovedProperties>>();
    qDBusRegisterMetaType<QList<QStringList>>();
    qDBusRegisterMetaType<QList<int>>();
}

/// The colours of the panel's menu are unknown: this grey is visible on light and on dark.
const QColor imageColour(0x82, 0x82, 0x86);
constexpr int imagePixels = 32;

QByteArray png(const QImage &image) {
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    // Little compression is enough for a drawing of a few lines.
    constexpr int fast = 80;
    image.save(&buffer, "PNG", fast);
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

template <typename Node>
ItemLayout layoutOf(const Node &node, int depth, const QStringList &names) {
    ItemLayout layout{node.id, named(node.properties, names), {}};
    if (depth != 0) {
        for (const auto &child : node.children) {
            layout.children << layoutOf(child, depth < 0 ? depth : depth - 1, names);
        }
    }
    return layout;
}

} // namespace

struct DBusMenuExporter::Changes {
    QList<ItemProperties> updated;
    QList<RemovedProperties> removed;
    /// Ids of the nodes with new children.
    QList<int> layouts;
};

DBusMenuExporter::DBusMenuExporter(const QDBusConnection &connection,
                                   drawing::SymbolImages &symbols,
                                   std::function<void(const MenuCommand &)> perform)
    : DBusObject(connection, u"/MenuBar"_s, u"com.canonical.dbusmenu"_s),
      symbols_(symbols),
      perform_(std::move(perform)) {
    registerTypes();
    root_.properties.insert(u"children-display"_s, u"submenu"_s);
    const auto with = [this](auto handle) {
        return [this, handle](const QVariantList &arguments) { return (this->*handle)(arguments); };
    };
    const auto isUpToDate = [](const QVariantList &) { return Reply(QVariantList{false}); };
    const auto areUpToDate = [](const QVariantList &) {
        const auto none = QVariant::fromValue(QList<int>{});
        return Reply(QVariantList{none, none});
    };
    offer({{u"GetLayout"_s, u"iias"_s, u"u(ia{sv}av)"_s, with(&DBusMenuExporter::getLayout)},
           {u"GetGroupProperties"_s, u"aias"_s, u"a(ia{sv})"_s,
            with(&DBusMenuExporter::getGroupProperties)},
           {u"GetProperty"_s, u"is"_s, u"v"_s, with(&DBusMenuExporter::getProperty)},
           {u"Event"_s, u"isvu"_s, {}, with(&DBusMenuExporter::event)},
           {u"EventGroup"_s, u"a(isvu)"_s, u"ai"_s, with(&DBusMenuExporter::eventGroup)},
           {u"AboutToShow"_s, u"i"_s, u"b"_s, isUpToDate},
           {u"AboutToShowGroup"_s, u"ai"_s, u"aiai"_s, areUpToDate}},
          {{u"ItemsPropertiesUpdated"_s, u"a(ia{sv})a(ias)"_s}, {u"LayoutUpdated"_s, u"ui"_s}});
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
    ItemProperties updated{.id = node.id};
    for (auto property = properties.cbegin(); property != properties.cend(); ++property) {
        if (before.value(property.key()) != property.value()) {
            updated.properties.insert(property.key(), property.value());
        }
    }
    if (!updated.properties.isEmpty()) {
        changes.updated << updated;
    }
    RemovedProperties removed{.id = node.id};
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
        emitSignal(u"ItemsPropertiesUpdated"_s,
                   {QVariant::fromValue(changes.updated), QVariant::fromValue(changes.removed)});
    }
    for (const auto id : changes.layouts) {
        emitSignal(u"LayoutUpdated"_s, {++revision_, id});
    }
}

QVariantMap DBusMenuExporter::propertiesOf(const MenuItem &item) {
    if (item.isSeparator) {
        return {{u"type"_s, u"separator"_s}};
    }
    const auto text = drawing::fittedToScreens(drawing::menuText(item));
    QVariantMap properties{{u"label"_s, drawing::panelLabel(text)}, {u"enabled"_s, item.isEnabled}};
    if (!text.keys.isEmpty()) {
        properties.insert(u"shortcut"_s,
                          QVariant::fromValue(QList<QStringList>{drawing::panelKeys(text)}));
    }
    if (item.isOn) {
        properties.insert(u"toggle-type"_s, u"checkmark"_s);
        properties.insert(u"toggle-state"_s, 1);
    }
    if (item.image) {
        const QByteArray image = imageData(item.image->name);
        if (!image.isEmpty()) {
            properties.insert(u"icon-data"_s, image);
        }
    }
    if (item.submenu) {
        properties.insert(u"children-display"_s, u"submenu"_s);
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

QVariantMap DBusMenuExporter::properties() const {
    return {{u"Version"_s, 3U},
            {u"Status"_s, u"normal"_s},
            {u"TextDirection"_s, u"ltr"_s},
            {u"IconThemePath"_s, QStringList{}}};
}

DBusObject::Reply DBusMenuExporter::getLayout(const QVariantList &arguments) const {
    const auto *node = find(root_, arguments.value(0).toInt());
    if (!node) {
        return std::nullopt;
    }
    const auto depth = arguments.value(1, -1).toInt();
    const auto names = arguments.value(2).toStringList();
    return QVariantList{revision_, QVariant::fromValue(layoutOf(*node, depth, names))};
}

DBusObject::Reply DBusMenuExporter::getGroupProperties(const QVariantList &arguments) const {
    const auto names = arguments.value(1).toStringList();
    QList<ItemProperties> answers;
    for (const auto id : qdbus_cast<QList<int>>(arguments.value(0))) {
        if (const auto *node = find(root_, id)) {
            answers << ItemProperties{id, named(node->properties, names)};
        }
    }
    return QVariantList{QVariant::fromValue(answers)};
}

DBusObject::Reply DBusMenuExporter::getProperty(const QVariantList &arguments) const {
    const auto *node = find(root_, arguments.value(0).toInt());
    const auto name = arguments.value(1).toString();
    if (!node || !node->properties.contains(name)) {
        return std::nullopt;
    }
    return QVariantList{QVariant::fromValue(QDBusVariant(node->properties.value(name)))};
}

DBusObject::Reply DBusMenuExporter::event(const QVariantList &arguments) {
    if (!handleEvent(arguments.value(0).toInt(), arguments.value(1).toString())) {
        return std::nullopt;
    }
    return QVariantList{};
}

DBusObject::Reply DBusMenuExporter::eventGroup(const QVariantList &arguments) {
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
        if (!handleEvent(id, eventName)) {
            unknown << id;
        }
    }
    events.endArray();
    return QVariantList{QVariant::fromValue(unknown)};
}

bool DBusMenuExporter::handleEvent(int id, const QString &name) {
    const auto *node = find(root_, id);
    if (!node) {
        return false;
    }
    if (name == u"clicked" && node->isEnabled && node->command.action != ActionID::none) {
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

} // namespace corvane::freedesktop
