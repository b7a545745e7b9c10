#include "platform/posix/CommandClient.h"

#include "platform/posix/CommandMessage.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/posix/UnixSocket.h"

#include <array>
#include <limits>
#include <string_view>

#include <poll.h>
#include <unistd.h>

namespace corvane::posix {

namespace {

using Clock = std::chrono::steady_clock;

bool waitFor(const FileDescriptor &connection, short event, Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    pollfd watched{.fd = connection.get(), .events = event, .revents = 0};
    return left > 0 && poll(&watched, 1, static_cast<int>(left)) > 0;
}

bool sendAll(const FileDescriptor &connection, std::string_view text, Clock::time_point deadline) {
    while (!text.empty() && waitFor(connection, POLLOUT, deadline)) {
        const ssize_t count = sendSome(connection, text);
        if (count <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return text.empty();
}

std::optional<CommandReply> receive(const FileDescriptor &connection, Clock::time_point deadline) {
    MessageReader reader(std::numeric_limits<std::size_t>::max());
    std::array<char, 4096> bytes{};
    while (waitFor(connection, POLLIN, deadline)) {
        const ssize_t count = read(connection.get(), bytes.data(), bytes.size());
        if (count <= 0) {
            break;
        }
        const auto state = reader.append({bytes.data(), static_cast<std::size_t>(count)});
        if (state != MessageReader::State::incomplete) {
            return decodeReply(reader.words());
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<CommandReply> sendCommand(const std::filesystem::path &path,
                                        const CommandRequest &request,
                                        std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    const auto connection = isPrivateFolder(path.parent_path()) ? connectTo(path) : std::nullopt;
    if (!connection || peerOf(*connection) != geteuid()) {
        return std::nullopt;
    }
    auto reply = sendAll(*connection, encodeWords(request), deadline)
                     ? receive(*connection, deadline)
                     : std::nullopt;
    return reply ? reply : noReply();
}

} // namespace corvane::posix
