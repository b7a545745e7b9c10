#include "TargetProgram.h"

#include "TextFile.h"
#include "platform/x11/connection/Xcb.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <sstream>

#include <poll.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

template <typename... Fields>
void report(const std::string &kind, Fields... fields) {
    std::ostringstream line;
    line << kind;
    ((line << '\t' << fields), ...);
    line << '\n';
    std::fputs(line.str().c_str(), stdout);
    std::fflush(stdout);
}

long long monotonicNanoseconds() {
    constexpr long long nanosecondsPerSecond = 1'000'000'000;
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * nanosecondsPerSecond + now.tv_nsec;
}

TargetWindowSettings settingsFrom(const std::vector<std::string> &fields) {
    const auto number = [&fields](std::size_t index) { return std::stoi(fields.at(index)); };
    return {.x = static_cast<std::int16_t>(number(2)),
            .y = static_cast<std::int16_t>(number(3)),
            .width = static_cast<std::uint16_t>(number(4)),
            .height = static_cast<std::uint16_t>(number(5)),
            .pid = number(6),
            .isFullscreen = number(7) != 0,
            .isOverride = number(8) != 0,
            .ownShadow = static_cast<std::uint32_t>(number(9)),
            .type = fields.at(10),
            .className = fields.at(11),
            .title = fields.at(12)};
}

} // namespace

bool TargetProgram::run() {
    std::array<pollfd, 2> sources{pollfd{STDIN_FILENO, POLLIN, 0},
                                  pollfd{xcb_get_file_descriptor(connection_), POLLIN, 0}};
    while (xcb_connection_has_error(connection_) == 0) {
        handleEvents();
        poll(sources.data(), sources.size(), -1);
        if (sources[0].revents != 0 && !readCommands()) {
            return true;
        }
    }
    return false;
}

bool TargetProgram::readCommands() {
    std::array<char, 4096> buffer{};
    const ssize_t length = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (length <= 0) {
        return false;
    }
    input_.append(buffer.data(), static_cast<std::size_t>(length));
    for (const std::string &line : wholeLines(input_)) {
        carryOut(split(line, '\t'));
    }
    input_.erase(0, input_.rfind('\n') + 1);
    return true;
}

void TargetProgram::carryOut(const std::vector<std::string> &fields) {
    const std::string &command = fields.at(0);
    const int number = std::stoi(fields.at(1));
    if (command == "open") {
        windows_.try_emplace(number, connection_, settingsFrom(fields));
    } else if (command == "move") {
        windows_.at(number).moveTo(std::stoi(fields.at(2)), std::stoi(fields.at(3)));
    } else if (command == "retitle") {
        windows_.at(number).setTitle(fields.at(2));
        report("retitled", number);
    } else if (command == "close") {
        windows_.erase(number);
        report("closed", number);
    }
}

void TargetProgram::handleEvents() {
    while (const x11::XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
        handle(*event);
    }
}

void TargetProgram::handle(const xcb_generic_event_t &event) {
    constexpr unsigned sentByServer = 0x7F;
    switch (event.response_type & sentByServer) {
    case XCB_MAP_NOTIFY: {
        const auto &mapped = reinterpret_cast<const xcb_map_notify_event_t &>(event);
        report("mapped", numberOf(mapped.window), mapped.window);
        break;
    }
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
        reportButton(reinterpret_cast<const xcb_button_press_event_t &>(event));
        break;
    default:
        break;
    }
}

void TargetProgram::reportButton(const xcb_button_press_event_t &event) const {
    const bool isPress = event.response_type == XCB_BUTTON_PRESS;
    report(isPress ? "press" : "release", numberOf(event.event), int{event.detail}, event.state,
           event.root_x, event.root_y, event.time, monotonicNanoseconds());
}

int TargetProgram::numberOf(xcb_window_t window) const {
    for (const auto &[number, each] : windows_) {
        if (each.id() == window) {
            return number;
        }
    }
    return 0;
}

} // namespace corvane::desktop
