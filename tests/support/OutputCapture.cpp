#include "support/OutputCapture.h"

#include "support/StandardOutput.h"

namespace corvane::testing {

OutputCapture::OutputCapture() {
    useOutputSink([this](std::string_view line) {
        const std::lock_guard lock(mutex_);
        lines_.emplace_back(line);
    });
}

OutputCapture::~OutputCapture() { useOutputSink({}); }

std::vector<std::string> OutputCapture::lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
}

} // namespace corvane::testing
