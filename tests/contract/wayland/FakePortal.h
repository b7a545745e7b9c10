#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>
#include <QVariantMap>

#include <memory>
#include <mutex>
#include <vector>

namespace corvane::contract {

/// The desktop's portal on the session bus of the tests, and the user who answers it: remote
/// desktop sessions with a screen cast. It lives on a thread of its own, so that calls to it may
/// block.
class FakePortal {
  public:
    struct Options {
        /// What Start answers: 0 for consent, 1 where the user refuses.
        uint response = 0;
        /// The devices that exist, and those that the user allows: 2 is the pointer.
        uint deviceTypes = 7;
        uint devices = 2;
        bool hasStream = true;
        /// Given back by Start where it is not empty.
        QString restoreToken{};
        uint version = 2;
        /// Whether the user answers at all.
        bool answers = true;
    };

    FakePortal();
    explicit FakePortal(Options options);
    /// Takes the portal off the bus.
    ~FakePortal();

    FakePortal(const FakePortal &) = delete;
    FakePortal &operator=(const FakePortal &) = delete;

    /// What the user answers from now on.
    void setResponse(uint response);

    /// Ends the session as the user does in the desktop's own menu.
    void endSession();

    /// 1 for each press and 0 for each release so far.
    std::vector<uint> buttons() const;
    /// How often a session has been closed by its program.
    int closedSessions() const;
    /// What the last SelectDevices and SelectSources asked for.
    QVariantMap devicesAsked() const;
    QVariantMap sourcesAsked() const;

  private:
    class Object;

    QThread thread_;
    std::unique_ptr<Object> object_;
};

} // namespace corvane::contract
