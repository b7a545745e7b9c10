#pragma once

#include "ClientWindow.h"
#include "CommandInput.h"
#include "Control.h"
#include "Mouse.h"
#include "platform/wayland/connection/Events.h"
#include "platform/wayland/connection/Seat.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace corvane::desktop {

/// Opens windows and reports what the pointer does in them, and moves the pointer as a user would.
class ClientProgram {
  public:
    explicit ClientProgram(std::unique_ptr<wayland::Connection> connection);
    ~ClientProgram();

    ClientProgram(const ClientProgram &) = delete;
    ClientProgram &operator=(const ClientProgram &) = delete;

  private:
    bool carryOut(const std::vector<std::string> &fields);
    void open(const std::vector<std::string> &fields);
    void reportPointer(const std::string &what, std::uint32_t button = 0,
                       std::uint32_t time = 0) const;
    int windowBeneathPointer() const;

    wayland::Events events_;
    xdg_wm_base *shell_ = nullptr;
    wayland::Handle<wl_registry> registry_;
    const std::unique_ptr<Mouse> mouse_;
    const std::unique_ptr<Control> control_;
    std::map<int, ClientWindow> windows_;
    wl_surface *beneathPointer_ = nullptr;
    Point point_{};
    wayland::Seat seat_;
    CommandInput input_;
};

} // namespace corvane::desktop
