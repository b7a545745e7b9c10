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

void RecordingCommandEndpoint::listen(Obey obey) {
    mainThread_.check();
    obey_ = std::move(obey);
}

void RecordingCommandEndpoint::close(const std::function<void()> &sayGoodbye) {
    mainThread_.check();
    obey_ = nullptr;
    sayGoodbye();
}

void RecordingCommandEndpoint::send(const CommandRequest &request) {
    if (!obey_) {
        throw std::logic_error("nobody listens for commands");
    }
    obey_(request, [this](const CommandAnswer &answer) {
        mainThread_.check();
        answers.push_back(answer);
    });
}

} // namespace corvane::testing
