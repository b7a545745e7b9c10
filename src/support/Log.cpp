#include "support/Log.h"

#include <array>
#include <ctime>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane {

namespace {

std::function<void(std::string_view)> &logSink() {
    static std::function<void(std::string_view)> sink;
    return sink;
}

/// The present time in the log's form. Sixty lines may be written in a second: the time is put into
/// words once for all of them. Plain memory, because there may be lines while the program ends.
std::string_view timeStamp() {
    thread_local std::array<char, 64> text{};
    thread_local std::size_t length = 0;
    thread_local std::time_t second = 0;
    const std::time_t now = std::time(nullptr);
    if (now != second || length == 0) {
        std::tm utc{};
        gmtime_r(&now, &utc);
        length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S +0000", &utc);
        second = now;
    }
    return {text.data(), length};
}

/// Whether it is an ordinary file of this user under one name only: whoever put another one there
/// wants to read along or to have something else written to.
bool isOwnFile(int descriptor) {
    struct stat status{};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == geteuid() && status.st_nlink == 1;
}

} // namespace

void log(std::string_view message) {
    if (logSink()) {
        logSink()(message);
    } else {
        appendLogLine(logPath, message);
    }
}

void appendLogLine(const char *path, std::string_view message) {
    constexpr mode_t defaultAttributes = 0666;
    // Anyone may have put something else under this name in a shared directory: a link is not
    // followed and a pipe is not waited for.
    const int descriptor =
        open(path, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY,
             defaultAttributes);
    if (descriptor < 0) {
        return;
    }
    if (isOwnFile(descriptor)) {
        constexpr std::size_t roomForStamp = 32;
        std::string line;
        line.reserve(message.size() + roomForStamp);
        line.append(timeStamp()).append(" ").append(message).append("\n");
        // One write of the whole line, so that lines of several threads and processes stay whole.
        [[maybe_unused]] const ssize_t written = write(descriptor, line.data(), line.size());
    }
    close(descriptor);
}

void useLogSink(std::function<void(std::string_view)> sink) { logSink() = std::move(sink); }

} // namespace corvane
