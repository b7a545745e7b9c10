#include "platform/posix/UnixSocket.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace corvane::posix {

namespace {

constexpr int backlog = 64;

std::unexpected<Failure> failure(const std::filesystem::path &path, int error) {
    return std::unexpected(Failure{path.string() + ": " + std::generic_category().message(error)});
}

/// Nothing for a path longer than addresses can be.
std::optional<sockaddr_un> addressOf(const std::filesystem::path &path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string &text = path.native();
    if (text.size() >= sizeof(address.sun_path)) {
        return std::nullopt;
    }
    std::memcpy(address.sun_path, text.c_str(), text.size());
    return address;
}

FileDescriptor makeSocket() {
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    if (socket.isOpen()) {
        fcntl(socket.get(), F_SETFD, FD_CLOEXEC);
#ifdef __APPLE__
        // Now: a socket whose other end has hung up takes no options. Accepted ones inherit it.
        const int yes = 1;
        setsockopt(socket.get(), SOL_SOCKET, SO_NOSIGPIPE, &yes, sizeof(yes));
#endif
    }
    return socket;
}

const sockaddr *generic(const sockaddr_un &address) {
    return reinterpret_cast<const sockaddr *>(&address);
}

} // namespace

Outcome<FileDescriptor> listenAt(const std::filesystem::path &path) {
    // Renamed only when it listens, so that no client finds a socket that refuses connections.
    std::filesystem::path unnamed = path;
    unnamed += "." + std::to_string(getpid());
    const auto address = addressOf(unnamed);
    if (!address) {
        return failure(path, ENAMETOOLONG);
    }
    FileDescriptor socket = makeSocket();
    unlink(unnamed.c_str());
    if (!socket.isOpen() || bind(socket.get(), generic(*address), sizeof(*address)) != 0 ||
        chmod(unnamed.c_str(), S_IRUSR | S_IWUSR) != 0 || listen(socket.get(), backlog) != 0 ||
        rename(unnamed.c_str(), path.c_str()) != 0) {
        const int error = errno;
        unlink(unnamed.c_str());
        return failure(path, error);
    }
    makeNonBlocking(socket);
    return socket;
}

bool canHoldSocket(const std::filesystem::path &folder) {
    constexpr const char *longestName = "display_0.socket.4194304";
    return addressOf(folder / longestName).has_value();
}

std::optional<FileDescriptor> connectTo(const std::filesystem::path &path) {
    const auto address = addressOf(path);
    FileDescriptor socket = makeSocket();
    if (!address || !socket.isOpen() ||
        connect(socket.get(), generic(*address), sizeof(*address)) != 0) {
        return std::nullopt;
    }
    return socket;
}

std::optional<uid_t> peerOf(const FileDescriptor &connection) {
#ifdef __APPLE__
    uid_t user = 0;
    gid_t group = 0;
    return getpeereid(connection.get(), &user, &group) == 0 ? std::optional(user) : std::nullopt;
#else
    ucred credentials{};
    socklen_t size = sizeof(credentials);
    return getsockopt(connection.get(), SOL_SOCKET, SO_PEERCRED, &credentials, &size) == 0
               ? std::optional(credentials.uid)
               : std::nullopt;
#endif
}

ssize_t sendSome(const FileDescriptor &connection, std::string_view text) {
#ifdef __APPLE__
    constexpr int flags = 0;
#else
    constexpr int flags = MSG_NOSIGNAL;
#endif
    return send(connection.get(), text.data(), text.size(), flags);
}

void makeNonBlocking(const FileDescriptor &descriptor) {
    fcntl(descriptor.get(), F_SETFD, FD_CLOEXEC);
    fcntl(descriptor.get(), F_SETFL, fcntl(descriptor.get(), F_GETFL) | O_NONBLOCK);
}

} // namespace corvane::posix
