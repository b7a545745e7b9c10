#include "platform/wayland/sway/Ipc.h"

#include "platform/posix/UnixSocket.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace corvane::wayland::sway {

namespace {

/// Both numbers in the machine's own byte order.
struct Header {
    std::array<char, 6> magic;
    std::array<char, sizeof(std::uint32_t)> length;
    std::array<char, sizeof(std::uint32_t)> type;
};

constexpr std::array<char, 6> magic{'i', '3', '-', 'i', 'p', 'c'};

std::array<char, 4> bytesOf(std::uint32_t number) {
    std::array<char, 4> bytes{};
    std::memcpy(bytes.data(), &number, bytes.size());
    return bytes;
}

std::uint32_t numberIn(const std::array<char, 4> &bytes) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data(), bytes.size());
    return number;
}

void limitWaiting(int socket) {
    constexpr timeval limit{.tv_sec = 2, .tv_usec = 0};
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof(limit));
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof(limit));
}

} // namespace

std::optional<Ipc> Ipc::open() {
    const char *path = std::getenv("SWAYSOCK"); // NOLINT(concurrency-mt-unsafe)
    auto socket = path != nullptr ? posix::connectTo(path) : std::nullopt;
    if (!socket) {
        return std::nullopt;
    }
    limitWaiting(socket->get());
    return Ipc(std::move(*socket));
}

bool Ipc::send(MessageType type, const std::string &payload) const {
    const Header header{magic, bytesOf(static_cast<std::uint32_t>(payload.size())),
                        bytesOf(static_cast<std::uint32_t>(type))};
    std::string message(reinterpret_cast<const char *>(&header), sizeof(header));
    message += payload;
    std::string_view rest = message;
    while (!rest.empty()) {
        const ssize_t sent = posix::sendSome(socket_, rest);
        if (sent <= 0) {
            return false;
        }
        rest.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

std::optional<Message> Ipc::receive() const {
    constexpr std::uint32_t longest = 64U << 20U;
    Header header{};
    if (!read(&header, sizeof(header)) || header.magic != magic ||
        numberIn(header.length) > longest) {
        return std::nullopt;
    }
    Message message{.type = numberIn(header.type),
                    .payload = std::string(numberIn(header.length), '\0')};
    return read(message.payload.data(), message.payload.size()) ? std::optional(std::move(message))
                                                                : std::nullopt;
}

nlohmann::json Ipc::request(MessageType type, const std::string &payload) const {
    const auto answer = send(type, payload) ? receive() : std::nullopt;
    return nlohmann::json::parse(answer ? answer->payload : "", nullptr, false);
}

bool Ipc::read(void *destination, std::size_t length) const {
    auto *position = static_cast<char *>(destination);
    while (length > 0) {
        const ssize_t count = ::read(socket_.get(), position, length);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        position += count;
        length -= static_cast<std::size_t>(count);
    }
    return true;
}

} // namespace corvane::wayland::sway
