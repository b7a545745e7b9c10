#include "support/recorder/RecordingCommandEndpoint.h"

#include <stdexcept>
#include <utility>

namespace corvane {

void PrintTo(const CommandReply &reply, std::ostream *out) {
    *out << static_cast<int>(reply.result) << " \"" << reply.output << "\" \"" << reply.error
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
    handler_(request, [this](const CommandReply &reply) {
        mainThread_.check();
        replies.push_back(reply);
    });
}

} // namespace corvane::testing
