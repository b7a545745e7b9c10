#pragma once

#include "platform/Workspace.h"

#include <vector>

namespace corvane::testing {

/// Keeps the addresses instead of opening them.
class RecordingWorkspace : public platform::Workspace {
  public:
    void openUrl(const std::string &url) override { opened.push_back(url); }

    std::vector<std::string> opened;
};

} // namespace corvane::testing
