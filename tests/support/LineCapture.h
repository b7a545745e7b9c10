#pragma once

#include "support/Log.h"
#include "support/StandardOutput.h"

#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::testing {

/// Takes the lines that would be written to a file, while it lives.
class LineCapture {
  public:
    /// Gives the lines another destination than the file; none for the file.
    using UseSink = void (*)(std::function<void(std::string_view)>);

    explicit LineCapture(UseSink useSink) : useSink_(useSink) {
        useSink_([this](std::string_view line) {
            const std::lock_guard lock(mutex_);
            lines_.emplace_back(line);
        });
    }
    ~LineCapture() { useSink_({}); }

    LineCapture(const LineCapture &) = delete;
    LineCapture &operator=(const LineCapture &) = delete;

    /// The lines so far, in order, without their line feeds. Any thread.
    std::vector<std::string> lines() const {
        const std::lock_guard lock(mutex_);
        return lines_;
    }

  private:
    const UseSink useSink_;
    mutable std::mutex mutex_;
    std::vector<std::string> lines_;
};

/// Takes the messages of the diagnostic log.
struct LogCapture : LineCapture {
    LogCapture() : LineCapture(useLogSink) {}
};

/// Takes what goes to standard output.
struct OutputCapture : LineCapture {
    OutputCapture() : LineCapture(useOutputSink) {}
};

} // namespace corvane::testing
