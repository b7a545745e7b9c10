#pragma once

#include "platform/posix/FileDescriptor.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::wayland::sway {

/// What a message to sway is, as its protocol numbers it.
enum class MessageType : std::uint32_t {
    runCommand = 0,
    subscribe = 2,
    getTree = 4,
    getConfig = 9,
};

/// A message of sway's: the answer to the last one sent, or an event, which has the highest bit of
/// its number set.
struct Message {
    std::uint32_t type = 0;
    std::string payload;
};

/// A connection to sway's control socket.
class Ipc {
  public:
    /// To the socket that SWAYSOCK names; nothing where there is none.
    static std::optional<Ipc> open();

    int descriptor() const { return socket_.get(); }

    bool send(MessageType type, const std::string &payload = {}) const;

    /// Waits for a message; nothing when sway has gone, does not answer for a while or sends
    /// something else.
    std::optional<Message> receive() const;

    /// Sends a message and waits for the answer; discarded JSON without one.
    nlohmann::json request(MessageType type, const std::string &payload = {}) const;

  private:
    explicit Ipc(posix::FileDescriptor socket) : socket_(std::move(socket)) {}

    bool read(void *destination, std::size_t length) const;

    posix::FileDescriptor socket_;
};

} // namespace corvane::wayland::sway
