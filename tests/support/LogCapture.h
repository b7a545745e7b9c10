#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace corvane::testing {

/// Takes the diagnostic log's messages while it lives, instead of the file.
class LogCapture {
  public:
    LogCapture();
    ~LogCapture();

    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    /// The messages so far, in order. Any thread.
    std::vector<std::string> messages() const;

  private:
    mutable std::mutex mutex_;
    std::vector<std::string> messages_;
};

} // namespace corvane::testing
