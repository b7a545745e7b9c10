// Another program, whose windows note the clicks they get. It carries out commands from standard
// input and reports to standard output, a line each with fields between tabs, until the input ends.

#include "TargetWindow.h"
#include "TextFile.h"
#include "platform/linux/timing/SchedulerSlice.h"
#include "platform/x11/connection/Xcb.h"

#include <array>
#include <chrono>
#include <iostream>
#include <map>
#include <vector>

#include <poll.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

template <typename... Fields>
void report(const std::string &kind, Fields... fields) {
    std::cout << kind;
    ((std::cout << '\t' << fields), ...);
    std::cout << std::endl;
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

class TargetProgram {
  public:
    /// The connection outlives it.
    explicit TargetProgram(xcb_connection_t *connection) : connection_(connection) {}

    /// Whether it ended as it should: the input ended before the display did.
    bool run() {
        std::array<pollfd, 2> sources{pollfd{STDIN_FILENO, POLLIN, 0},
                                      pollfd{xcb_get_file_descriptor(connection_), POLLIN, 0}};
        while (xcb_connection_has_error(connection_) == 0) {
            while (
                const x11::XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
                handle(*event);
            }
            poll(sources.data(), sources.size(), -1);
            if (sources[0].revents != 0 && !readCommands()) {
                return true;
            }
        }
        return false;
    }

  private:
    bool readCommands() {
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

    void carryOut(const std::vector<std::string> &fields) {
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

    void handle(const xcb_generic_event_t &event) const {
        constexpr unsigned sentByServer = 0x7F;
        const unsigned type = event.response_type & sentByServer;
        if (type == XCB_MAP_NOTIFY) {
            const auto &mapped = reinterpret_cast<const xcb_map_notify_event_t &>(event);
            report("mapped", numberOf(mapped.window), mapped.window);
        } else if (type == XCB_BUTTON_PRESS || type == XCB_BUTTON_RELEASE) {
            const auto &button = reinterpret_cast<const xcb_button_press_event_t &>(event);
            report(type == XCB_BUTTON_PRESS ? "press" : "release", numberOf(button.event),
                   int{button.detail}, button.state, button.root_x, button.root_y, button.time,
                   std::chrono::steady_clock::now().time_since_epoch().count());
        }
    }

    int numberOf(xcb_window_t window) const {
        for (const auto &[number, each] : windows_) {
            if (each.id() == window) {
                return number;
            }
        }
        return 0;
    }

    xcb_connection_t *connection_;
    std::map<int, TargetWindow> windows_;
    std::string input_;
};

} // namespace

} // namespace corvane::desktop

int main() {
    // Its clicks are timed.
    corvane::linux::requestSchedulerSlice();
    xcb_connection_t *const connection = xcb_connect(nullptr, nullptr);
    const bool isEndedInOrder = xcb_connection_has_error(connection) == 0 &&
                                corvane::desktop::TargetProgram(connection).run();
    xcb_disconnect(connection);
    return isEndedInOrder ? 0 : 1;
}
