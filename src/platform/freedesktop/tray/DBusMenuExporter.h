#pragma once

#include "platform/freedesktop/bus/BusObject.h"
#include "presentation/Menu.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace corvane::freedesktop {

/// Exports a menu over com.canonical.dbusmenu for the desktop's panel to draw. An unchanged menu
/// sends nothing, changed texts and states are sent alone; only inserted and removed items make the
/// panel read the layout again. Main thread.
class DBusMenuExporter : public BusObject {
  public:
    /// `perform` receives each command the user chooses, in a later event-loop iteration.
    DBusMenuExporter(BusConnection &bus, std::function<void(const MenuCommand &)> perform);

    void setMenu(const Menu &menu);

  private:
    /// The keys of a shortcut, such as "Control" and "Q".
    struct Keys {
        std::vector<std::string> names;
        bool operator==(const Keys &) const = default;
    };
    /// A file in PNG format.
    struct Image {
        QByteArray file;
        bool operator==(const Image &) const = default;
    };
    using Value = std::variant<bool, std::int32_t, std::string, Keys, Image>;
    /// Those that do not have their default value, by their names in the standard.
    using Properties = std::map<std::string_view, Value>;
    /// An item under the id that the panel knows it by; 0 is the menu itself.
    struct Node {
        std::int32_t id = 0;
        MenuCommand command;
        bool isEnabled = true;
        Properties properties;
        std::vector<Node> children;
    };
    /// What a new menu changed.
    struct Changes;

    Node makeNode(const MenuItem &item);
    /// Both change the nodes of `from` into those of `to`, and `from` itself too.
    void patch(Node &node, MenuItem &from, const MenuItem &to, Changes &changes);
    void patchChildren(Node &node, std::vector<MenuItem> &from, const std::vector<MenuItem> &to,
                       Changes &changes);
    static void patchProperties(Node &node, Properties properties, Changes &changes);
    void send(const Changes &changes);
    static Properties propertiesOf(const MenuItem &item);

    static void write(BusMessage &message, const Value &value);
    /// a{sv}: those with these names, or all where there are no names.
    static void write(BusMessage &message, const Properties &properties,
                      const std::vector<std::string> &names = {});
    /// (ia{sv}av), with submenus to that depth; negative for all.
    static void writeLayout(BusMessage &message, const Node &node, int depth,
                            const std::vector<std::string> &names);

    static const sd_bus_vtable table[]; // NOLINT(modernize-avoid-c-arrays): as sd-bus takes it
    bool getLayout(BusMessage &call, BusMessage &reply);
    bool getGroupProperties(BusMessage &call, BusMessage &reply);
    bool getProperty(BusMessage &call, BusMessage &reply);
    bool event(BusMessage &call, BusMessage &reply);
    bool eventGroup(BusMessage &call, BusMessage &reply);
    bool aboutToShow(BusMessage &call, BusMessage &reply);
    bool aboutToShowGroup(BusMessage &call, BusMessage &reply);
    /// False for an unknown id.
    bool handleEvent(std::int32_t id, std::string_view name);

    static const Node *find(const Node &node, std::int32_t id);

    std::function<void(const MenuCommand &)> perform_;
    Menu shown_;
    Node root_;
    std::int32_t lastId_ = 0;
    std::uint32_t revision_ = 1;
    /// The context of commands that are still to be carried out.
    QObject pending_;
};

} // namespace corvane::freedesktop
