#include "platform/posix/ListeningSocket.h"

#include "platform/posix/PrivateFolder.h"
#include "platform/posix/UnixSocket.h"
#include "support/Log.h"

#include <sys/stat.h>
#include <unistd.h>

namespace corvane::posix {

Outcome<ListeningSocket> ListeningSocket::open(const std::filesystem::path &path) {
    ListeningSocket socket(path);
    if (const auto listening = socket.listen(); !listening) {
        return std::unexpected(listening.error());
    }
    return socket;
}

Outcome<> ListeningSocket::listen() {
    if (auto folder = makePrivateFolder(path_.parent_path()); !folder) {
        return folder;
    }
    auto socket = listenAt(path_);
    if (!socket) {
        return std::unexpected(socket.error());
    }
    socket_ = std::move(*socket);
    struct stat status{};
    if (lstat(path_.c_str(), &status) == 0) {
        device_ = status.st_dev;
        file_ = status.st_ino;
    }
    return {};
}

bool ListeningSocket::isAtPath() const {
    struct stat status{};
    return lstat(path_.c_str(), &status) == 0 && status.st_dev == device_ && status.st_ino == file_;
}

void ListeningSocket::keepPath() {
    if (isRemoved_ || isAtPath() || connectTo(path_)) {
        return;
    }
    const auto listening = listen();
    log(listening ? "Takes commands again at " + path_.string()
                  : "Cannot take commands at " + listening.error().description);
}

void ListeningSocket::removePath() {
    isRemoved_ = true;
    if (isAtPath()) {
        unlink(path_.c_str());
    }
}

} // namespace corvane::posix
