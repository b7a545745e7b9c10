#include "PrivateMounts.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <sched.h>

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

bool overwrite(const char *path, const char *text) {
    const int file = open(path, O_WRONLY | O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    const bool isWritten = write(file, text, std::strlen(text)) >= 0;
    return close(file) == 0 && isWritten;
}

/// Maps the user and the group to themselves, so that the program notices nothing.
bool becomeNamespaceOwner(uid_t user, gid_t group) {
    std::array<char, 64> userMap{};
    std::array<char, 64> groupMap{};
    std::snprintf(userMap.data(), userMap.size(), "%u %u 1", user, user);
    std::snprintf(groupMap.data(), groupMap.size(), "%u %u 1", group, group);
    return overwrite("/proc/self/setgroups", "deny") &&
           overwrite("/proc/self/uid_map", userMap.data()) &&
           overwrite("/proc/self/gid_map", groupMap.data());
}

bool enterNamespace() {
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (user == 0) {
        return unshare(CLONE_NEWNS) == 0;
    }
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && becomeNamespaceOwner(user, group);
}

} // namespace

void PrivateMounts::replace(const std::filesystem::path &target,
                            const std::filesystem::path &source) {
    mounts_.push_back({.source = source, .target = target, .flags = MS_BIND});
}

void PrivateMounts::makeReadOnly(const std::filesystem::path &folder) {
    replace(folder, folder);
    mounts_.push_back({.target = folder, .flags = MS_BIND | MS_REMOUNT | MS_RDONLY});
}

void PrivateMounts::putSmallFileSystem(const std::filesystem::path &folder, std::size_t bytes) {
    mounts_.push_back({.source = "tmpfs",
                       .target = folder,
                       .type = "tmpfs",
                       .data = "size=" + std::to_string(bytes)});
}

bool PrivateMounts::enter() const {
    // Nothing mounted here may spread to the other namespaces.
    if (!enterNamespace() || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
        return false;
    }
    for (const Mount &each : mounts_) {
        if (mount(each.source.c_str(), each.target.c_str(), each.type.c_str(), each.flags,
                  each.data.c_str()) != 0) {
            return false;
        }
    }
    return true;
}

} // namespace corvane::desktop
