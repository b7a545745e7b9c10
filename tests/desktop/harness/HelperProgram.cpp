#include "HelperProgram.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <stdexcept>

namespace corvane::desktop {

namespace {

bool isAnswered(const std::vector<std::string> &lines) {
    return !lines.empty() && (lines.back() == "done" || lines.back() == "refused");
}

} // namespace

std::vector<std::string> HelperProgram::request(const std::string &command,
                                                const std::string &notice) {
    process_->write(command + "\n");
    std::vector<std::string> answer;
    const bool hasCome = waitUntil([&] {
        const std::vector<std::string> lines = wholeLines(process_->standardOutput());
        answer.assign(lines.begin() + static_cast<std::ptrdiff_t>(readLines_), lines.end());
        std::erase(answer, notice);
        readLines_ += isAnswered(answer) ? lines.size() - readLines_ : 0;
        return isAnswered(answer);
    });
    if (!hasCome) {
        throw std::runtime_error("No answer to '" + command + "': " + process_->standardError());
    }
    return answer;
}

void HelperProgram::demand(const std::string &command) {
    if (request(command).back() != "done") {
        throw std::runtime_error("Refused: " + command);
    }
}

} // namespace corvane::desktop
