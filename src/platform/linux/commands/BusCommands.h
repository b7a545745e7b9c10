#pragma once

#include "platform/CommandEndpoint.h"
#include "platform/freedesktop/bus/SessionBus.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include <string>
#include <vector>

#include <sys/types.h>
#include <unistd.h>

namespace corvane::linux {

/// Takes commands on the session bus, also on one that replaces another: an object with the method
/// Run(words: as) -> (result: i, output: s, error: s). Main thread.
class BusCommands : public QDBusVirtualObject {
  public:
    /// Listens under the names; another program that has one keeps it as long as it runs. Only
    /// `user` is obeyed.
    BusCommands(std::vector<std::string> names, platform::CommandEndpoint::Obey obey,
                uid_t user = geteuid());
    /// Answers given by now still arrive.
    ~BusCommands() override;

    /// Gives the names up: whoever comes from now on does not find this program. Answers given
    /// later still arrive.
    void releaseNames();

    BusCommands(const BusCommands &) = delete;
    BusCommands &operator=(const BusCommands &) = delete;

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  private:
    QDBusConnection connection() const { return bus_.connection(); }
    void listen();
    void requestName(const std::string &name);
    void awaitDelivery() const;
    void checkUser(const QDBusMessage &message);
    void obey(const QDBusMessage &message);

    const std::vector<std::string> names_;
    const platform::CommandEndpoint::Obey obey_;
    const uid_t user_;
    freedesktop::SessionBus bus_;
};

} // namespace corvane::linux
