#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <map>
#include <vector>

namespace corvane::desktop {

/// An item of a menu with its submenu, as a panel reads it.
struct PanelMenuItem {
    int id = 0;
    QVariantMap properties;
    std::vector<PanelMenuItem> children;

    QString label() const;
    /// The first item with that label below this one; an item with id 0 where there is none.
    PanelMenuItem find(const QString &label) const;
};

/// A picture of an icon: ARGB, 32 bits a pixel, most significant byte first.
struct PanelPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

/// A desktop's panel as status items see it on the session bus: the watcher they register with, and
/// a host that reads and uses what they show. It reads every value by itself, sharing no types with
/// the program under test. Each call waits for its reply in an event loop of its own, so the item
/// may live in the same thread.
class FakePanel : public QDBusVirtualObject {
    Q_OBJECT

  public:
    /// How the watcher replies to whether it has a host.
    enum class Reply { none, error, no, yes };

    explicit FakePanel(Reply reply = Reply::yes);
    ~FakePanel() override;
    FakePanel(const FakePanel &) = delete;
    FakePanel &operator=(const FakePanel &) = delete;

    /// Whether it owns the watcher's name.
    bool isPresent() const { return isPresent_; }
    /// Gives up the watcher's name and stays on the bus.
    void resign();

    void setReply(Reply reply) { reply_ = reply; }
    /// The reply to one client of the bus alone.
    void setReplyTo(const QString &client, Reply reply) { replies_[client] = reply; }
    /// Called once, after the next reply or the lack of one.
    void afterReply(std::function<void()> called) { afterReply_ = std::move(called); }
    /// Whether items may register.
    void setTakesItems(bool takesItems) { takesItems_ = takesItems; }
    /// Called whenever an item has registered.
    void onRegistration(std::function<void()> called) { onRegistration_ = std::move(called); }
    /// The host appears and announces itself.
    void addHost();

    /// How often the clients, or one of them, have called for whether there is a host.
    int requests() const;
    int requestsOf(const QString &client) const;
    /// How often items have called to register, and the connections of those that did.
    int registrations() const { return registrations_; }
    const QStringList &items() const { return items_; }

    // What follows concerns the item that registered last.

    QVariant itemProperty(const QString &name);
    QList<PanelPixmap> iconPixmaps();
    QString toolTipTitle();
    /// The menu itself, with id 0.
    PanelMenuItem menu();
    PanelMenuItem line(const QString &label) { return menu().find(label); }
    /// As a click on the item; false where the program refuses.
    bool choose(int id);
    /// Calls any method of the menu; false where the program refuses.
    bool callMenu(const QString &method, const QVariantList &arguments);
    /// A left click by a panel that leaves showing the menu to the program.
    void activate(int x, int y);

    /// What a tool such as busctl reads about one of the item's objects.
    QString introspection(const QString &path);

    /// How many signals of that name items and menus have sent.
    int signalCount(const QString &name) const;
    /// What the signals ItemsPropertiesUpdated have changed.
    const QList<PanelMenuItem> &updates() const { return updates_; }

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  private:
    Q_SLOT void countSignal(const QDBusMessage &signal);

    void replyToRequest(const QDBusMessage &request);
    void registerItem(const QDBusMessage &request);
    QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                      const QVariantList &arguments);

    QDBusConnection bus_;
    bool isPresent_ = false;
    Reply reply_;
    std::map<QString, Reply> replies_;
    bool takesItems_ = true;
    std::function<void()> afterReply_;
    std::function<void()> onRegistration_;
    std::map<QString, int> requests_;
    int registrations_ = 0;
    QStringList items_;
    std::map<QString, int> signals_;
    QList<PanelMenuItem> updates_;
};

} // namespace corvane::desktop
