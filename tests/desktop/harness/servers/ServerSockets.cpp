#include "ServerSockets.h"

#include "WaitUntil.h"
#include "probes/ProcessTable.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

posix::FileDescriptor checked(long descriptor, const char *failure) {
    if (descriptor < 0) {
        throw std::system_error(errno, std::generic_category(), failure);
    }
    return posix::FileDescriptor(static_cast<int>(descriptor));
}

bool leadsToServer(int socket) {
    sockaddr_un peer{};
    socklen_t length = sizeof peer;
    if (getpeername(socket, reinterpret_cast<sockaddr *>(&peer), &length) != 0 ||
        peer.sun_family != AF_UNIX || length <= offsetof(sockaddr_un, sun_path)) {
        return false;
    }
    // The name may be one of the abstract kind, which begins with a zero.
    const std::string_view path(peer.sun_path, length - offsetof(sockaddr_un, sun_path));
    return path.find("/tmp/.X11-unix/X") != std::string_view::npos;
}

/// Has a program stand still.
class Standstill {
  public:
    explicit Standstill(pid_t program) : program_(program) {
        kill(program, SIGSTOP);
        waitUntil([&] { return isStopped(program); });
    }
    ~Standstill() { kill(program_, SIGCONT); }
    Standstill(const Standstill &) = delete;
    Standstill &operator=(const Standstill &) = delete;

  private:
    const pid_t program_;
};

} // namespace

ServerSockets::ServerSockets(pid_t program) : program_(program) {
    const auto process =
        checked(syscall(SYS_pidfd_open, program, 0), "The program cannot be taken hold of");
    for (const auto &entry :
         std::filesystem::directory_iterator("/proc/" + std::to_string(program) + "/fd")) {
        if (!entry.is_socket()) {
            continue;
        }
        auto socket = checked(
            syscall(SYS_pidfd_getfd, process.get(), std::stoi(entry.path().filename().string()), 0),
            "A socket cannot be taken hold of");
        if (leadsToServer(socket.get())) {
            sockets_.push_back(std::move(socket));
        }
    }
}

bool ServerSockets::cutTheOneThatReceives(const std::function<void()> &happening) const {
    const Standstill standstill(program_);
    // A late answer may come on another one; hardly each time.
    constexpr int rounds = 5;
    std::vector<bool> receives(sockets_.size(), true);
    for (int round = 0; round < rounds; ++round) {
        const std::vector<int> before = unreadBytes();
        happening();
        if (!waitUntil([&] { return unreadBytes() != before; })) {
            return false;
        }
        const std::vector<int> after = unreadBytes();
        for (std::size_t index = 0; index < after.size(); ++index) {
            receives[index] = receives[index] && after[index] > before[index];
        }
    }
    if (std::ranges::count(receives, true) != 1) {
        return false;
    }
    const auto index = std::ranges::find(receives, true) - receives.begin();
    return shutdown(sockets_[static_cast<std::size_t>(index)].get(), SHUT_RDWR) == 0;
}

std::vector<int> ServerSockets::unreadBytes() const {
    std::vector<int> unread;
    for (const posix::FileDescriptor &socket : sockets_) {
        int bytes = 0;
        ioctl(socket.get(), FIONREAD, &bytes);
        unread.push_back(bytes);
    }
    return unread;
}

} // namespace corvane::desktop
