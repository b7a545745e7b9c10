#include "platform/x11/windows/ClientWindows.h"

#include "support/Log.h"

#include <utility>

namespace corvane::x11 {

namespace {

/// How long everything is watched at least after somebody has asked.
constexpr std::chrono::seconds watchTime(2);

/// A server that is about to end must not be asked sixty times a second.
constexpr std::chrono::seconds pauseBetweenReplacements(1);

} // namespace

ClientWindows::ClientWindows(std::unique_ptr<XcbConnection> connection,
                             platform::MainQueue &mainQueue)
    : mainQueue_(mainQueue),
      connection_(std::move(connection)),
      watch_(std::make_unique<WindowWatch>(*connection_)) {}

std::shared_ptr<const ClientWindows::Owners> ClientWindows::owners() {
    catchUp();
    return watch_->owners();
}

std::shared_ptr<const ClientWindows::Windows>
ClientWindows::windowsOf(std::int32_t processIdentifier) {
    catchUp();
    return watch_->windowsOf(processIdentifier);
}

void ClientWindows::catchUp() {
    wasAsked_ = true;
    if (!restTimer_) {
        restTimer_ = mainQueue_.every(watchTime, [this] { restUnlessAsked(); });
    }
    watch_->catchUp();
    if (connection_->isLost()) {
        replaceConnection();
    }
}

void ClientWindows::restUnlessAsked() {
    if (std::exchange(wasAsked_, false)) {
        return;
    }
    restTimer_.reset();
    watch_->rest();
}

void ClientWindows::replaceConnection() {
    const auto now = Clock::now();
    if (now < nextReplacement_) {
        return;
    }
    nextReplacement_ = now + pauseBetweenReplacements;
    auto replacement = XcbConnection::open();
    if (!replacement) {
        log("The connection that watches windows is lost");
        return;
    }
    log("The connection that watches windows was lost and is replaced");
    watch_.reset();
    connection_ = std::move(*replacement);
    watch_ = std::make_unique<WindowWatch>(*connection_);
    watch_->catchUp();
}

} // namespace corvane::x11
