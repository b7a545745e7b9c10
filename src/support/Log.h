#pragma once

#include <functional>
#include <string_view>

namespace corvane {

/// Where `log` writes unless another sink is in use.
inline constexpr const char *logPath = "/tmp/corvane.log";

/// Appends one line with the time in UTC to the diagnostic log. Any thread. A line that cannot be
/// written is lost silently.
void log(std::string_view message);

/// Appends such a line to the file at `path`, which is created where missing. A file that somebody
/// else owns or that has another name too is not written, a link is not followed and a pipe not
/// waited for. Any thread.
void appendLogLine(const char *path, std::string_view message);

/// Sends the messages of `log` elsewhere, on the thread that logs them; an empty function restores
/// the file.
void useLogSink(std::function<void(std::string_view message)> sink);

} // namespace corvane
