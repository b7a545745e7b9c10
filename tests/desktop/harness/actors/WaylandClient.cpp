#include "WaylandClient.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <algorithm>
#include <cmath>
#include <linux/input-event-codes.h>
#include <map>
#include <stdexcept>

namespace corvane::desktop {

namespace {

const std::map<std::string, PointerEvent::Kind> kinds{{"enter", PointerEvent::Kind::enter},
                                                      {"motion", PointerEvent::Kind::motion},
                                                      {"press", PointerEvent::Kind::press},
                                                      {"release", PointerEvent::Kind::release}};

int wholeNumber(const std::string &text) { return static_cast<int>(std::lround(std::stod(text))); }

} // namespace

WaylandClient::WaylandClient(const WaylandDesktop &desktop)
    : desktop_(desktop),
      program_(desktop.start({CORVANE_WAYLAND_CLIENT})),
      output_(program_->outputFile()) {}

int WaylandClient::open(const Window &window) {
    const int number = ++windowCount_;
    request("open\t" + std::to_string(number) + "\t" + std::to_string(window.width) + "\t" +
            std::to_string(window.height) + "\t" + window.application + "\t" + window.title);
    const bool isShown = waitUntil([&] {
        listen();
        return shown_.contains(number) && desktop_.shows(window.title);
    });
    if (!isShown) {
        throw std::runtime_error("The window did not come up: " + program_->standardError());
    }
    desktop_.place(window.title, window.position);
    return number;
}

void WaylandClient::retitle(int window, const std::string &title) {
    request("retitle\t" + std::to_string(window) + "\t" + title);
}

void WaylandClient::close(int window) { request("close\t" + std::to_string(window)); }

void WaylandClient::moveTo(Position position) {
    request("point\t" + std::to_string(position.x) + "\t" + std::to_string(position.y));
}

void WaylandClient::press() { request("button\t" + std::to_string(BTN_LEFT) + "\t1"); }

void WaylandClient::release() { request("button\t" + std::to_string(BTN_LEFT) + "\t0"); }

const std::vector<PointerEvent> &WaylandClient::events() const {
    listen();
    return events_;
}

int WaylandClient::count(PointerEvent::Kind kind) const {
    return static_cast<int>(std::ranges::count(events(), kind, &PointerEvent::kind));
}

bool WaylandClient::waitForClicks(int count, std::chrono::milliseconds limit) const {
    return waitUntil([&] { return pressCount() >= count && releaseCount() >= count; }, limit);
}

void WaylandClient::request(const std::string &command) {
    const int before = answers_;
    program_->write(command + "\n");
    const bool isAnswered = waitUntil([&] {
        listen();
        return answers_ > before;
    });
    if (!isAnswered) {
        throw std::runtime_error("No answer to '" + command + "': " + program_->standardError());
    }
}

void WaylandClient::listen() const {
    for (const std::string &line : output_.newLines()) {
        const auto fields = split(line, '\t');
        if (const auto kind = kinds.find(fields.front()); kind != kinds.end()) {
            events_.push_back({.kind = kind->second,
                               .window = std::stoi(fields.at(1)),
                               .position = {wholeNumber(fields.at(3)), wholeNumber(fields.at(4))},
                               .milliseconds = std::stoll(fields.at(5))});
        } else if (fields.front() == "shown") {
            shown_.insert(std::stoi(fields.at(1)));
        } else {
            ++answers_;
        }
    }
}

} // namespace corvane::desktop
