#pragma once

#include "platform/drawing/SymbolImages.h"
#include "platform/freedesktop/bus/DBusObject.h"
#include "platform/freedesktop/tray/DBusMenuTypes.h"
#include "presentation/Menu.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace corvane::freedesktop {

/// A menu that the desktop's panel draws, over com.canonical.dbusmenu. An unchanged menu sends
/// nothing, changed texts and states are sent as such, and only lines that come or go make the
/// panel read the layout again. Main thread.
class DBusMenuExporter : public DBusObject {
  public:
    /// `perform` receives each command the user chooses, in a later turn of the event loop.
    DBusMenuExporter(const QDBusConnection &connection, drawing::SymbolImages &symbols,
                     std::function<void(const MenuCommand &)> perform);

    void setMenu(const Menu &menu);

    QString introspect(const QString &path) const override;

  protected:
    Signatures methods() const override;
    std::optional<QVariantList> call(const QString &method, const QVariantList &arguments) override;
    QVariantMap properties() const override;

  private:
    /// A line of the menu under the number by which the panel knows it; 0 is the menu itself.
    struct Node {
        int id = 0;
        MenuCommand command;
        bool isEnabled = true;
        QVariantMap properties;
        std::vector<Node> children;
    };

    /// What a new menu changed, collected to be sent together.
    struct Changes {
        QList<PanelItemProperties> updated;
        QList<PanelItemNames> removed;
        QList<int> layouts;
    };

    Node makeNode(const MenuItem &item);
    /// Both make what stands for `from` stand for `to`, `from` itself included.
    void patch(Node &node, MenuItem &from, const MenuItem &to, Changes &changes);
    void patchProperties(Node &node, const QVariantMap &properties, Changes &changes);
    void patchChildren(Node &node, std::vector<MenuItem> &from, const std::vector<MenuItem> &to,
                       Changes &changes);
    void send(const Changes &changes);
    QVariantMap propertiesOf(const MenuItem &item);
    /// The symbol as a picture file; empty when there is no such symbol.
    QByteArray imageData(const std::string &symbol);

    std::optional<QVariantList> getLayout(const QVariantList &arguments) const;
    std::optional<QVariantList> getGroupProperties(const QVariantList &arguments) const;
    std::optional<QVariantList> getProperty(const QVariantList &arguments) const;
    std::optional<QVariantList> event(const QVariantList &arguments);
    std::optional<QVariantList> eventGroup(const QVariantList &arguments);
    /// False for a line that does not exist.
    bool receive(int id, const QString &eventName);

    static const Node *find(const Node &node, int id);
    static PanelItemLayout layout(const Node &node, int depth, const QStringList &names);

    drawing::SymbolImages &symbols_;
    std::function<void(const MenuCommand &)> perform_;
    std::map<std::string, QByteArray> imageData_;
    Menu shown_;
    Node root_;
    int lastId_ = 0;
    uint revision_ = 1;
};

} // namespace corvane::freedesktop
