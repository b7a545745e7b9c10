#include "platform/freedesktop/tray/DBusMenuExporter.h"

#include "platform/drawing/MenuText.h"
#include "presentation/MenuAlignment.h"

#include <QResource>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// The symbol as a PNG file; empty for an unknown symbol.
QByteArray imageFile(const std::string &symbol) {
    return QResource(u":/menu/%1.png"_s.arg(QString::fromStdString(symbol))).uncompressedData();
}

/// Selects a function by the type of its argument.
template <typename... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};

} // namespace

struct DBusMenuExporter::Changes {
    struct Updated {
        std::int32_t id;
        Properties properties;
    };
    struct Removed {
        std::int32_t id;
        std::vector<std::string> names;
    };

    std::vector<Updated> updated;
    /// Properties that have their default value again.
    std::vector<Removed> removed;
    /// Ids of the nodes with new children.
    std::vector<std::int32_t> layouts;
};

const sd_bus_vtable DBusMenuExporter::table[] = { // NOLINT(modernize-avoid-c-arrays)
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("GetLayout", "iias", "u(ia{sv}av)",
                  (handleCall<DBusMenuExporter, &DBusMenuExporter::getLayout>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetGroupProperties", "aias", "a(ia{sv})",
                  (handleCall<DBusMenuExporter, &DBusMenuExporter::getGroupProperties>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetProperty", "is", "v",
                  (handleCall<DBusMenuExporter, &DBusMenuExporter::getProperty>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Event", "isvu", "", (handleCall<DBusMenuExporter, &DBusMenuExporter::event>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("EventGroup", "a(isvu)", "ai",
                  (handleCall<DBusMenuExporter, &DBusMenuExporter::eventGroup>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("AboutToShow", "i", "b",
                  (handleCall<DBusMenuExporter, &DBusMenuExporter::aboutToShow>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("AboutToShowGroup", "ai", "aiai",
                  (handleCall<DBusMenuExporter, &DBusMenuExporter::aboutToShowGroup>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL("ItemsPropertiesUpdated", "a(ia{sv})a(ias)", 0),
    SD_BUS_SIGNAL("LayoutUpdated", "ui", 0),
    SD_BUS_PROPERTY("Version", "u",
                    (readProperty<DBusMenuExporter, [](const DBusMenuExporter &,
                                                       BusMessage &reply) { reply.write(3U); }>),
                    0, 0),
    SD_BUS_PROPERTY(
        "Status", "s",
        (readProperty<DBusMenuExporter,
                      [](const DBusMenuExporter &, BusMessage &reply) { reply.write("normal"); }>),
        0, 0),
    SD_BUS_PROPERTY("TextDirection", "s",
                    (readProperty<DBusMenuExporter, [](const DBusMenuExporter &,
                                                       BusMessage &reply) { reply.write("ltr"); }>),
                    0, 0),
    SD_BUS_PROPERTY(
        "IconThemePath", "as",
        (readProperty<DBusMenuExporter,
                      [](const DBusMenuExporter &, BusMessage &reply) { reply.writeTexts({}); }>),
        0, 0),
    SD_BUS_VTABLE_END};

DBusMenuExporter::DBusMenuExporter(BusConnection &bus,
                                   std::function<void(const MenuCommand &)> perform)
    : BusObject(bus, "/MenuBar", "com.canonical.dbusmenu"),
      perform_(std::move(perform)) {
    root_.properties.emplace("children-display", "submenu");
    offer(table, this);
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

void DBusMenuExporter::patchProperties(Node &node, Properties properties, Changes &changes) {
    Changes::Updated updated{.id = node.id, .properties = {}};
    for (const auto &[name, value] : properties) {
        const auto before = node.properties.find(name);
        if (before == node.properties.end() || before->second != value) {
            updated.properties.emplace(name, value);
        }
    }
    if (!updated.properties.empty()) {
        changes.updated.push_back(std::move(updated));
    }
    Changes::Removed removed{.id = node.id, .names = {}};
    for (const auto &[name, value] : node.properties) {
        if (!properties.contains(name)) {
            removed.names.emplace_back(name);
        }
    }
    if (!removed.names.empty()) {
        changes.removed.push_back(std::move(removed));
    }
    node.properties = std::move(properties);
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
    changes.layouts.push_back(node.id);
    from = to;
}

void DBusMenuExporter::send(const Changes &changes) {
    if (!changes.updated.empty() || !changes.removed.empty()) {
        emitSignal("ItemsPropertiesUpdated", [&changes](BusMessage &signal) {
            signal.writeArray("(ia{sv})", [&] {
                for (const auto &item : changes.updated) {
                    signal.writeStructure("ia{sv}", [&] {
                        signal.write(item.id);
                        write(signal, item.properties);
                    });
                }
            });
            signal.writeArray("(ias)", [&] {
                for (const auto &item : changes.removed) {
                    signal.writeStructure("ias", [&] {
                        signal.write(item.id);
                        signal.writeTexts(item.names);
                    });
                }
            });
        });
    }
    for (const std::int32_t id : changes.layouts) {
        ++revision_;
        emitSignal("LayoutUpdated", [this, id](BusMessage &signal) {
            signal.write(revision_);
            signal.write(id);
        });
    }
}

DBusMenuExporter::Properties DBusMenuExporter::propertiesOf(const MenuItem &item) {
    if (item.isSeparator) {
        return {{"type", "separator"}};
    }
    const auto text = drawing::fittedToScreens(drawing::menuText(item));
    Properties properties{{"label", drawing::panelLabel(text).toStdString()},
                          {"enabled", item.isEnabled}};
    if (!text.keys.isEmpty()) {
        Keys keys;
        for (const QString &key : drawing::panelKeys(text)) {
            keys.names.push_back(key.toStdString());
        }
        properties.emplace("shortcut", std::move(keys));
    }
    if (item.isOn) {
        properties.emplace("toggle-type", "checkmark");
        properties.emplace("toggle-state", 1);
    }
    if (item.image) {
        const QByteArray file = imageFile(item.image->name);
        if (!file.isEmpty()) {
            properties.emplace("icon-data", Image{file});
        }
    }
    if (item.submenu) {
        properties.emplace("children-display", "submenu");
    }
    return properties;
}

void DBusMenuExporter::write(BusMessage &message, const Value &value) {
    const auto basic = [&message](const char *type) {
        return [&message, type](const auto &content) {
            message.writeVariant(type, [&] { message.write(content); });
        };
    };
    std::visit(Overloaded{[&](bool on) { basic("b")(on); },
                          [&](std::int32_t number) { basic("i")(number); },
                          [&](const std::string &text) { basic("s")(text); },
                          [&](const Keys &keys) {
                              message.writeVariant("aas", [&] {
                                  message.writeArray("as", [&] { message.writeTexts(keys.names); });
                              });
                          },
                          [&](const Image &image) {
                              message.writeVariant("ay", [&] {
                                  message.writeBytes(std::as_bytes(std::span(image.file)));
                              });
                          }},
               value);
}

void DBusMenuExporter::write(BusMessage &message, const Properties &properties,
                             const std::vector<std::string> &names) {
    message.writeArray("{sv}", [&] {
        for (const auto &property : properties) {
            if (names.empty() || std::ranges::find(names, property.first) != names.end()) {
                message.writeEntry("sv", [&] {
                    // All names are literals. NOLINTNEXTLINE(bugprone-suspicious-stringview-*)
                    message.write(property.first.data());
                    write(message, property.second);
                });
            }
        }
    });
}

void DBusMenuExporter::writeLayout(BusMessage &message, const Node &node, int depth,
                                   const std::vector<std::string> &names) {
    message.writeStructure("ia{sv}av", [&] {
        message.write(node.id);
        write(message, node.properties, names);
        message.writeArray("v", [&] {
            if (depth == 0) {
                return;
            }
            for (const Node &child : node.children) {
                message.writeVariant("(ia{sv}av)", [&] {
                    writeLayout(message, child, depth < 0 ? depth : depth - 1, names);
                });
            }
        });
    });
}

bool DBusMenuExporter::getLayout(BusMessage &call, BusMessage &reply) {
    const Node *node = find(root_, call.readInt());
    if (node == nullptr) {
        return false;
    }
    const std::int32_t depth = call.readInt();
    reply.write(revision_);
    writeLayout(reply, *node, depth, call.readTexts());
    return true;
}

bool DBusMenuExporter::getGroupProperties(BusMessage &call, BusMessage &reply) {
    const auto ids = call.readInts();
    const auto names = call.readTexts();
    reply.writeArray("(ia{sv})", [&] {
        for (const std::int32_t id : ids) {
            if (const Node *node = find(root_, id)) {
                reply.writeStructure("ia{sv}", [&] {
                    reply.write(id);
                    write(reply, node->properties, names);
                });
            }
        }
    });
    return true;
}

bool DBusMenuExporter::getProperty(BusMessage &call, BusMessage &reply) {
    const Node *node = find(root_, call.readInt());
    const std::string name = call.readText();
    if (node == nullptr || !node->properties.contains(name)) {
        return false;
    }
    write(reply, node->properties.at(name));
    return true;
}

bool DBusMenuExporter::event(BusMessage &call, BusMessage & /*reply*/) {
    const std::int32_t id = call.readInt();
    return handleEvent(id, call.readText());
}

bool DBusMenuExporter::eventGroup(BusMessage &call, BusMessage &reply) {
    std::vector<std::int32_t> unknown;
    call.readArray("(isvu)", [&] {
        call.readStructure("isvu", [&] {
            const std::int32_t id = call.readInt();
            if (!handleEvent(id, call.readText())) {
                unknown.push_back(id);
            }
            call.skip("vu");
        });
    });
    reply.writeInts(unknown);
    return true;
}

/// The panel always has the present menu.
bool DBusMenuExporter::aboutToShow(BusMessage & /*call*/, BusMessage &reply) {
    reply.write(false);
    return true;
}

bool DBusMenuExporter::aboutToShowGroup(BusMessage & /*call*/, BusMessage &reply) {
    reply.writeInts({});
    reply.writeInts({});
    return true;
}

bool DBusMenuExporter::handleEvent(std::int32_t id, std::string_view name) {
    const Node *node = find(root_, id);
    if (node == nullptr) {
        return false;
    }
    if (name == "clicked" && node->isEnabled && node->command.action != ActionID::none) {
        QTimer::singleShot(0, &pending_,
                           [perform = perform_, command = node->command] { perform(command); });
    }
    return true;
}

const DBusMenuExporter::Node *DBusMenuExporter::find(const Node &node, std::int32_t id) {
    if (node.id == id) {
        return &node;
    }
    for (const Node &child : node.children) {
        if (const Node *found = find(child, id)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace corvane::freedesktop
