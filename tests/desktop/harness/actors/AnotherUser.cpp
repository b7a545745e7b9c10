#include "AnotherUser.h"

#include <stdexcept>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

/// The library's functions would change all threads.
bool become(uid_t user) {
    const gid_t group = user;
    return syscall(SYS_setgroups, 0, nullptr) == 0 &&
           syscall(SYS_setresgid, group, group, group) == 0 &&
           syscall(SYS_setresuid, user, user, user) == 0;
}

} // namespace

std::vector<uid_t> otherUsers() {
    constexpr uid_t nobody = 65534;
    return geteuid() == 0 ? std::vector{nobody} : std::vector<uid_t>();
}

void actAs(uid_t user, const std::function<void()> &work) {
    bool hasBecome = false;
    std::thread([&] {
        hasBecome = become(user);
        if (hasBecome) {
            work();
        }
    }).join();
    if (!hasBecome) {
        throw std::runtime_error("Nobody else can be acted as");
    }
}

} // namespace corvane::desktop
