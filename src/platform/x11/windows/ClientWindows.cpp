#include "platform/x11/windows/ClientWindows.h"

#include "platform/linux/windowing/OtherWindow.h"
#include "support/Log.h"

#include <utility>

namespace corvane::x11 {

namespace {

/// Windows are watched for at least this long after they were read.
constexpr std::chrono::seconds watchTime(2);

/// Keeps callers that read sixty times a second from connecting as often to a server that ends.
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

ClientWindows::Owners ClientWindows::topLevelOwners() {
    catchUp();
    return watch_->topLevelOwners();
}

ClientWindows::Windows ClientWindows::windowsOf(const std::set<std::int32_t> &processes) {
    catchUp();
    return *watch_->windowsOf(processes);
}

std::shared_ptr<const platform::AccessibilityWindows>
ClientWindows::accessibilityWindowsOf(const std::set<std::int32_t> &processes) {
    catchUp();
    auto windows = watch_->windowsOf(processes);
    if (connection_->isLost()) {
        return nullptr;
    }
    if (windows != windows_) {
        auto wrapped = std::make_shared<platform::AccessibilityWindows>();
        for (const auto &info : *windows) {
            wrapped->push_back(
                std::make_unique<linux::OtherWindow>(info->title, info->bounds, info->isOnScreen));
        }
        windows_ = std::move(windows);
        accessibilityWindows_ = std::move(wrapped);
    }
    return accessibilityWindows_;
}

void ClientWindows::catchUp() {
    wasRead_ = true;
    if (!restTimer_) {
        restTimer_ = mainQueue_.every(watchTime, [this] { restUnlessRead(); });
    }
    watch_->catchUp();
    if (connection_->isLost()) {
        replaceConnection();
    }
}

void ClientWindows::restUnlessRead() {
    if (std::exchange(wasRead_, false)) {
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
    auto replacement = connection_->openAnother();
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
