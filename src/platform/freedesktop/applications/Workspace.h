#pragma once

#include "platform/Workspace.h"

namespace corvane::freedesktop {

/// Opens addresses through the desktop.
class Workspace : public platform::Workspace {
  public:
    void openUrl(const std::string &url) override;
};

} // namespace corvane::freedesktop
