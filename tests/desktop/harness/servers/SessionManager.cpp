#include "SessionManager.h"

#include "TextFile.h"
#include "WaitUntil.h"

namespace corvane::desktop {

SessionManager::SessionManager(const VirtualDesktop &desktop)
    : program_(desktop, CORVANE_SESSION_MANAGER),
      address_(program_.request("address").front()) {}

std::vector<SessionMember> SessionManager::members() {
    std::vector<std::string> lines = program_.request("clients");
    lines.pop_back();
    std::vector<SessionMember> members;
    for (const std::string &line : lines) {
        const std::vector<std::string> fields = split(line, '\t');
        members.push_back(
            {.saves = std::stoi(fields.at(0)), .restartStyle = std::stoi(fields.at(1))});
    }
    return members;
}

bool SessionManager::waitForSaves(int count) {
    return waitUntil([this, count] {
        const std::vector<SessionMember> now = members();
        return now.size() == 1 && now.front().saves >= count;
    });
}

void SessionManager::save() { program_.request("save"); }

bool SessionManager::logOut() {
    const std::vector<SessionMember> before = members();
    program_.request("shutdown");
    if (before.size() != 1 || !waitForSaves(before.front().saves + 1)) {
        return false;
    }
    program_.request("die");
    return true;
}

} // namespace corvane::desktop
