#pragma once

#include <QString>

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class QEventLoop;

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

    /// What a program wants, by the names of the protocol.
    using Values = std::map<std::string, std::string>;

    FakePortal();
    explicit FakePortal(const Options &options);
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
    Values devicesAsked() const;
    Values sourcesAsked() const;

  private:
    class Object;

    std::atomic<bool> isOver_ = false;
    std::atomic<bool> endsSession_ = false;
    std::thread thread_;
    /// The thread's own, as long as it runs.
    Object *object_ = nullptr;
    QEventLoop *loop_ = nullptr;
};

} // namespace corvane::contract
