#pragma once

#include <string>

namespace corvane::platform {

/// The desktop's way of opening things. Main thread.
class Workspace {
  public:
    virtual ~Workspace() = default;

    /// Opens an address with the program the user chose for it. A failure is silent.
    virtual void openUrl(const std::string &url) = 0;
};

} // namespace corvane::platform
