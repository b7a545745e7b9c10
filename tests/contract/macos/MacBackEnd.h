#pragma once

#include "BackEnd.h"
#include "TemporaryFolder.h"
#include "platform/macos/app/Platform.h"

namespace corvane::contract {

/// The real back end.
class MacBackEnd : public BackEnd {
  public:
    static std::unique_ptr<BackEnd> make() { return std::make_unique<MacBackEnd>(); }

    platform::Platform &platform() override { return platform_; }
    bool turnUntil(const std::function<bool()> &condition) override;
    void announceLock(bool isLocked) override;
    std::filesystem::path directory() override { return directory_.path(); }

  private:
    desktop::TemporaryFolder directory_;
    macos::Platform platform_;
};

} // namespace corvane::contract
