#include "platform/linux/CommandLine.h"

#include <string_view>

namespace corvane::x11 {

namespace {

constexpr const char *usage = "Usage: corvane [option]\n"
                              "\n"
                              "Clicks the left mouse button again and again, at the cursor or "
                              "inside a zone of the screen.\n"
                              "Super+Shift+Y or the menu in the system tray starts and stops it.\n"
                              "\n"
                              "Options:\n"
                              "  -h, --help     show this text and exit\n"
                              "  -v, --version  show the version and exit\n";

} // namespace

CommandLine CommandLine::parse(std::span<const char *const> arguments) {
    if (arguments.empty()) {
        return {};
    }
    const std::string_view first = arguments.front();
    if (first == "-h" || first == "--help") {
        return {Request::answer, usage};
    }
    if (first == "-v" || first == "--version") {
        return {Request::answer, "Corvane " CORVANE_VERSION " (" CORVANE_BUILD_NUMBER ")\n"};
    }
    return {Request::refuse, "corvane: unknown option '" + std::string(first) + "'; try --help\n"};
}

} // namespace corvane::x11
