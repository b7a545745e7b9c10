#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace corvane::testing {

/// Takes the lines for standard output while it lives.
class OutputCapture {
  public:
    OutputCapture();
    ~OutputCapture();

    OutputCapture(const OutputCapture &) = delete;
    OutputCapture &operator=(const OutputCapture &) = delete;

    /// The lines so far, in order, without their line feeds. Any thread.
    std::vector<std::string> lines() const;

  private:
    mutable std::mutex mutex_;
    std::vector<std::string> lines_;
};

} // namespace corvane::testing
