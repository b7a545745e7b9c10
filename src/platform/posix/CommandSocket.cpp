#include "platform/posix/CommandSocket.h"

#include "platform/posix/CommandSenders.h"
#include "platform/posix/ListeningSocket.h"

#include <utility>

namespace corvane::posix {

Outcome<std::unique_ptr<CommandSocket>> CommandSocket::open(const std::filesystem::path &path,
                                                            platform::MainQueue &mainQueue,
                                                            platform::CommandEndpoint::Obey obey,
                                                            const Options &options) {
    auto listener = ListeningSocket::open(path);
    if (!listener) {
        return std::unexpected(listener.error());
    }
    auto senders =
        std::make_shared<Senders>(std::move(*listener), mainQueue, std::move(obey), options);
    return std::unique_ptr<CommandSocket>(
        new CommandSocket(std::move(senders))); // NOLINT(cppcoreguidelines-owning-memory)
}

CommandSocket::CommandSocket(std::shared_ptr<Senders> senders)
    : senders_(std::move(senders)),
      thread_([senders = senders_.get()] { senders->serve(); }) {}

CommandSocket::~CommandSocket() {
    if (thread_.joinable()) {
        close([] {});
    }
}

void CommandSocket::close(const std::function<void()> &sayGoodbye) {
    senders_->hide();
    sayGoodbye();
    senders_->end();
    thread_.join();
}

} // namespace corvane::posix
