#include "ScreenReader.h"

#include <utility>

namespace corvane::desktop {

namespace {

std::vector<std::string> withoutEnd(std::vector<std::string> answer) {
    answer.pop_back();
    return answer;
}

} // namespace

ScreenReader::ScreenReader(const VirtualDesktop &desktop)
    : program_(desktop, CORVANE_SCREEN_READER) {
    // It answers once assistive technology is on.
    focus();
}

std::vector<std::string> ScreenReader::window(const std::string &title) {
    return withoutEnd(program_.request("window\t" + title));
}

std::string ScreenReader::focus() {
    const auto lines = withoutEnd(program_.request("focus"));
    return lines.empty() ? std::string() : lines.front();
}

} // namespace corvane::desktop
