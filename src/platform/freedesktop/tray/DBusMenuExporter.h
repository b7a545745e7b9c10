#pragma once

#include "platform/drawing/SymbolImages.h"
#include "platform/freedesktop/bus/DBusObject.h"
#include "presentation/Menu.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace corvane::freedesktop {

/// Exports a menu over com.canonical.dbusmenu for the desktop's panel to draw. An unchanged menu
/// sends nothing, changed texts and states are sent alone; only inserted and removed items make the
/// panel read the layout again. Main thread.
class DBusMenuExporter : public DBusObject {
  public:
    /// `perform` receives each command the user chooses, in a later event-loop iteration.
    DBusMenuExporter(const QDBusConnection &connection, drawing::SymbolImages &symbols,
                     std::function<void(const MenuCommand &)> perform);

    void setMenu(const Menu &menu);

  protected:
    QVariantMap properties() const override;

  private:
    /// An item under the id that the panel knows it by; 0 is the menu itself.
    struct Node {
        int id = 0;
        MenuCommand command;
        bool isEnabled = true;
        QVariantMap properties;
        std::vector<Node> children;
    };
    /// What a new menu changed.
    struct Changes;

    Node makeNode(const MenuItem &item);
    /// Both change the nodes of `from` into those of `to`, and `from` itself too.
    void patch(Node &node, MenuItem &from, const MenuItem &to, Changes &changes);
    void patchChildren(Node &node, std::vector<MenuItem> &from, const std::vector<MenuItem> &to,
                       Changes &changes);
    static void patchProperties(Node &node, const QVariantMap &properties, Changes &changes);
    void send(const Changes &changes);
    QVariantMap propertiesOf(const MenuItem &item);
    /// The symbol as a PNG file; empty for an unknown symbol.
    QByteArray imageData(const std::string &symbol);

    Reply getLayout(const QVariantList &arguments) const;
    Reply getGroupProperties(const QVariantList &arguments) const;
    Reply getProperty(const QVariantList &arguments) const;
    Reply event(const QVariantList &arguments);
    Reply eventGroup(const QVariantList &arguments);
    /// False for an unknown id.
    bool handleEvent(int id, const QString &name);

    static const Node *find(const Node &node, int id);

    drawing::SymbolImages &symbols_;
    std::function<void(const MenuCommand &)> perform_;
    std::map<std::string, QByteArray> imageData_;
    Menu shown_;
    Node root_;
    int lastId_ = 0;
    uint revision_ = 1;
};

} // namespace corvane::freedesktop
