#include "platform/posix/CommandSocket.h"

#include "platform/posix/CommandSenders.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/posix/UnixSocket.h"

#include <utility>

namespace corvane::posix {

Outcome<std::unique_ptr<CommandSocket>> CommandSocket::open(const std::filesystem::path &path,
                                                            platform::MainQueue &mainQueue,
                                                            platform::CommandEndpoint::Obey obey,
                                                            const Options &options) {
    if (const auto folder = makePrivateFolder(path.parent_path()); !folder) {
        return std::unexpected(folder.error());
    }
    auto listener = listenAt(path);
    if (!listener) {
        return std::unexpected(listener.error());
    }
    auto senders =
        std::make_shared<Senders>(std::move(*listener), mainQueue, std::move(obey), options);
    return std::unique_ptr<CommandSocket>(
        new CommandSocket(path, std::move(senders))); // NOLINT(cppcoreguidelines-owning-memory)
}

CommandSocket::CommandSocket(std::filesystem::path path, std::shared_ptr<Senders> senders)
    : path_(std::move(path)),
      senders_(std::move(senders)),
      thread_([senders = senders_.get()] { senders->serve(); }) {}

CommandSocket::~CommandSocket() {
    if (thread_.joinable()) {
        close([] {});
    }
}

void CommandSocket::close(const std::function<void()> &sayGoodbye) {
    unlink(path_.c_str());
    sayGoodbye();
    senders_->end();
    thread_.join();
}

} // namespace corvane::posix
