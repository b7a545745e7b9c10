#pragma once

#include "BackEnd.h"
#include "EnvironmentVariable.h"
#include "TemporaryFolder.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/x11/connection/XcbEvents.h"

namespace corvane::contract {

/// The real back end, with a home directory of its own.
class LinuxBackEnd : public BackEnd {
  public:
    /// A compositor's events, where it is the window system, outlive the back end.
    explicit LinuxBackEnd(wayland::Events *compositor = nullptr)
        : platform_(events_, x11::XcbConnection::open().value(), compositor) {}

    static std::unique_ptr<BackEnd> make() { return std::make_unique<LinuxBackEnd>(); }

    platform::Platform &platform() override { return platform_; }
    bool turnUntil(const std::function<bool()> &condition) override;
    void announceLock(bool isLocked) override;
    void click(Point point) override;
    std::filesystem::path directory() override { return directory_.path(); }

  private:
    desktop::TemporaryFolder home_;
    desktop::TemporaryFolder directory_;
    EnvironmentVariable homeVariable_{"HOME", home_.path()};
    EnvironmentVariable configVariable_{"XDG_CONFIG_HOME", std::nullopt};
    x11::XcbEvents events_{x11::XcbConnection::open().value(),
                           [] { ADD_FAILURE() << "the server is gone"; }};
    linux::LinuxPlatform platform_;
};

} // namespace corvane::contract
