#pragma once

#include "BackEnd.h"
#include "TemporaryFolder.h"
#include "platform/macos/app/Platform.h"

#include <functional>
#include <vector>

namespace corvane::contract {

/// The real back end.
class MacBackEnd : public BackEnd {
  public:
    static std::unique_ptr<BackEnd> make() { return std::make_unique<MacBackEnd>(); }

    platform::Platform &platform() override { return platform_; }
    bool turnUntil(const std::function<bool()> &condition) override;
    void announceLock(bool isLocked) override;
    void click(Point point) override;
    std::filesystem::path directory() override { return directory_.path(); }

  private:
    desktop::TemporaryFolder directory_;
    macos::Platform platform_;
    /// Mouse events that have not been reported yet.
    std::vector<std::function<void()>> events_;
};

} // namespace corvane::contract
