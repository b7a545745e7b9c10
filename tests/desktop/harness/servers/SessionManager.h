#pragma once

#include "HelperProgram.h"
#include "servers/VirtualDesktop.h"

#include <string>
#include <vector>

namespace corvane::desktop {

/// A program that belongs to a session, as its session manager knows it.
struct SessionMember {
    /// How often it has saved what it has.
    int saves = 0;
    /// When it wants to be started with the restored session: 0 where it was running, 3 never.
    int restartStyle = 0;

    bool operator==(const SessionMember &) const = default;
};

/// A session manager (XSMP) that makes its clients save and end.
class SessionManager {
  public:
    explicit SessionManager(const VirtualDesktop &desktop);

    /// What the programs of the session find in SESSION_MANAGER.
    const std::string &address() const { return address_; }

    std::vector<SessionMember> members();

    /// Waits until there is one program and it has saved that often; false when time runs out.
    /// Every program saves once when it joins.
    bool waitForSaves(int count);

    /// Requests a save as session managers do now and then.
    void save();

    /// Ends the session: a save, and when it is done the end; false when it is never done.
    bool logOut();

    ChildProcess &process() { return program_.process(); }

  private:
    HelperProgram program_;
    std::string address_;
};

} // namespace corvane::desktop
