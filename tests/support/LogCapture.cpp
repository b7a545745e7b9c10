#include "support/LogCapture.h"

#include "support/Log.h"

namespace corvane::testing {

LogCapture::LogCapture() {
    useLogSink([this](std::string_view message) {
        const std::lock_guard lock(mutex_);
        messages_.emplace_back(message);
    });
}

LogCapture::~LogCapture() { useLogSink({}); }

std::vector<std::string> LogCapture::messages() const {
    const std::lock_guard lock(mutex_);
    return messages_;
}

} // namespace corvane::testing
