#pragma once

#include "platform/Workspace.h"

namespace corvane::macos {

/// The user's workspace.
class Workspace : public platform::Workspace {
  public:
    void openUrl(const std::string &url) override;
};

} // namespace corvane::macos
