#include "support/recorder/RecordingCommandEndpoint.h"

#include <stdexcept>
#include <utility>

namespace corvane {

void PrintTo(const CommandAnswer &answer, std::ostream *out) {
    *out << static_cast<int>(answer.result) << " \"" << answer.output << "\" \"" << answer.error
         << '"';
}

} // namespace corvane

namespace corvane::testing {

void RecordingCommandEndpoint::listen(RequestHandler handler) {
    mainThread_.check();
    handler_ = std::move(handler);
}

void RecordingCommandEndpoint::close(const std::function<void()> &announceEnd) {
    mainThread_.check();
    handler_ = nullptr;
    announceEnd();
}

void RecordingCommandEndpoint::send(const CommandRequest &request) {
    if (!handler_) {
        throw std::logic_error("nobody listens for commands");
    }
    handler_(request, [this](const CommandAnswer &answer) {
        mainThread_.check();
        answers.push_back(answer);
    });
}

} // namespace corvane::testing
