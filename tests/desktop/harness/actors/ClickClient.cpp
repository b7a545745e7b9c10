#include "ClickClient.h"

#include "TextFile.h"
#include "WaitUntil.h"
#include "platform/x11/connection/Xcb.h"

#include <ranges>
#include <stdexcept>

namespace corvane::desktop {

namespace {

std::string commandToOpen(int number, const ClickClient::Window &window) {
    std::string line = "open";
    const auto add = [&line](const std::string &field) { line += "\t" + field; };
    for (const int value :
         {number, window.x, window.y, window.width, window.height, window.pid,
          window.isFullscreen ? 1 : 0, window.isOverride ? 1 : 0, window.ownShadow}) {
        add(std::to_string(value));
    }
    add(window.type);
    add(window.className);
    add(window.title);
    return line;
}

ButtonEvent buttonEvent(const std::vector<std::string> &fields) {
    return {.isPress = fields[0] == "press",
            .window = std::stoi(fields[1]),
            .button = std::stoi(fields[2]),
            .state = std::stoi(fields[3]),
            .position = {std::stoi(fields[4]), std::stoi(fields[5])},
            .milliseconds = std::stoll(fields[6]),
            .nanoseconds = std::stoll(fields[7])};
}

} // namespace

ClickClient::ClickClient(const VirtualDesktop &desktop)
    : desktop_(desktop),
      program_(desktop.start({CORVANE_CLICK_CLIENT})),
      output_(program_->outputFile()) {}

int ClickClient::open(const Window &window) {
    const int number = ++windowCount_;
    send(commandToOpen(number, window));
    if (!waitUntil([&] { return isOnScreen(number); })) {
        throw std::runtime_error("The window did not come up: " + program_->standardError());
    }
    return number;
}

xcb_window_t ClickClient::windowId(int window) const {
    return static_cast<xcb_window_t>(std::stoul(lastReport("mapped", window).value().at(2)));
}

void ClickClient::move(int window, Position position) {
    send("move\t" + std::to_string(window) + "\t" + std::to_string(position.x) + "\t" +
         std::to_string(position.y));
    if (!waitUntil([&] { return this->position(window) == position; })) {
        const Position now = this->position(window);
        throw std::runtime_error("The window did not move but is at " + std::to_string(now.x) +
                                 ", " + std::to_string(now.y));
    }
}

void ClickClient::retitle(int window, const std::string &title) {
    const std::size_t before = reports("retitled").size();
    send("retitle\t" + std::to_string(window) + "\t" + title);
    waitUntil([&] { return reports("retitled").size() > before; });
}

void ClickClient::close(int window) {
    send("close\t" + std::to_string(window));
    if (!waitUntil([&] { return lastReport("closed", window).has_value(); })) {
        throw std::runtime_error("The window did not close");
    }
}

Position ClickClient::position(int window) const {
    const DisplayConnection &connection = desktop_.connection();
    const x11::XcbReply<xcb_translate_coordinates_reply_t> reply(xcb_translate_coordinates_reply(
        connection.get(),
        xcb_translate_coordinates(connection.get(), windowId(window), connection.root(), 0, 0),
        nullptr));
    if (!reply) {
        throw std::runtime_error("The window is gone");
    }
    return {reply->dst_x, reply->dst_y};
}

const std::vector<ButtonEvent> &ClickClient::events() const {
    listen();
    return events_;
}

int ClickClient::pressCount() const {
    listen();
    return pressCount_;
}

int ClickClient::releaseCount() const {
    listen();
    return static_cast<int>(events_.size()) - pressCount_;
}

bool ClickClient::waitForClicks(int count, std::chrono::milliseconds limit) const {
    return waitUntil([&] { return pressCount() >= count && releaseCount() >= count; }, limit);
}

bool ClickClient::isOnScreen(int window) const {
    if (!lastReport("mapped", window)) {
        return false;
    }
    // A window manager puts a window into its frame before it shows the frame.
    const DisplayConnection &connection = desktop_.connection();
    const x11::XcbReply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection.get(), xcb_get_window_attributes(connection.get(), windowId(window)), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

void ClickClient::send(const std::string &line) const { program_->write(line + "\n"); }

void ClickClient::listen() const {
    for (const std::string &line : output_.newLines()) {
        Fields fields = split(line, '\t');
        if (fields.front() == "press" || fields.front() == "release") {
            events_.push_back(buttonEvent(fields));
            pressCount_ += events_.back().isPress ? 1 : 0;
        } else {
            reports_[fields.front()].push_back(std::move(fields));
        }
    }
}

const std::vector<ClickClient::Fields> &ClickClient::reports(const std::string &kind) const {
    listen();
    return reports_[kind];
}

std::optional<ClickClient::Fields> ClickClient::lastReport(const std::string &kind,
                                                           int window) const {
    for (const Fields &fields : std::views::reverse(reports(kind))) {
        if (fields.at(1) == std::to_string(window)) {
            return fields;
        }
    }
    return std::nullopt;
}

} // namespace corvane::desktop
