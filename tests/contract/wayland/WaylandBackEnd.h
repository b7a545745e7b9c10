#pragma once

#include "BackEnd.h"
#include "EnvironmentVariable.h"
#include "LinuxBackEnd.h"
#include "actors/WaylandClient.h"
#include "platform/wayland/connection/Events.h"
#include "servers/WaylandDesktop.h"

#include <memory>
#include <string>

namespace corvane::contract {

/// The real back end with a compositor of its own as the window system, the pointer over another
/// program's window.
class WaylandBackEnd : public BackEnd {
  public:
    static std::unique_ptr<BackEnd> onSway();

    explicit WaylandBackEnd(std::unique_ptr<desktop::WaylandDesktop> desktop)
        : desktop_(std::move(desktop)) {
        client_.moveTo({250, 200});
    }

    platform::Platform &platform() override { return linux_.platform(); }
    bool turnUntil(const std::function<bool()> &condition) override {
        return linux_.turnUntil(condition);
    }
    void announceLock(bool isLocked) override { linux_.announceLock(isLocked); }
    void click(Point point) override;
    std::filesystem::path directory() override { return linux_.directory(); }

  private:
    std::optional<std::string> variable(const std::string &name) const;

    const std::unique_ptr<desktop::WaylandDesktop> desktop_;
    desktop::WaylandClient client_{*desktop_};
    int window_ = client_.open({.position = {100, 100}});
    EnvironmentVariable display_{"WAYLAND_DISPLAY",
                                 *variable("XDG_RUNTIME_DIR") + "/" + *variable("WAYLAND_DISPLAY")};
    EnvironmentVariable sway_{"SWAYSOCK", variable("SWAYSOCK")};
    wayland::Events events_{wayland::Connection::open(),
                            [] { ADD_FAILURE() << "the compositor is gone"; }};
    LinuxBackEnd linux_{&events_};
};

} // namespace corvane::contract
