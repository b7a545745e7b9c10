#pragma once

#include "platform/wayland/sway/Ipc.h"
#include "platform/wayland/windows/Windows.h"

#include <string_view>

namespace corvane::wayland::sway {

/// The windows of sway's tree.
class Windows : public wayland::Windows {
  public:
    std::optional<std::vector<Window>> windows() override;

  private:
    std::optional<Ipc> ipc_ = Ipc::open();
};

/// The windows of a tree as sway describes it, front-most first; nothing where it is none.
std::optional<std::vector<Window>> windowsOf(const nlohmann::json &tree);

} // namespace corvane::wayland::sway
