#include "ClientProgram.h"

#include <QCoreApplication>

#include <algorithm>
#include <string_view>
#include <utility>

namespace corvane::desktop {

namespace {

/// A window manager ends clients that do not answer.
void answerPings(xdg_wm_base *shell) {
    static constexpr xdg_wm_base_listener listener{
        .ping = [](void *, xdg_wm_base *base, std::uint32_t serial) {
            xdg_wm_base_pong(base, serial);
        }};
    xdg_wm_base_add_listener(shell, &listener, nullptr);
}

} // namespace

ClientProgram::ClientProgram(std::unique_ptr<wayland::Connection> connection)
    : events_(std::move(connection), [] { QCoreApplication::exit(1); }),
      registry_(wl_display_get_registry(events_.connection().display())),
      mouse_(Mouse::make(events_.connection())),
      control_(Control::make(events_.connection())),
      seat_(events_.connection(),
            {.pointerEntered =
                 [this](wl_surface *surface, Point point, std::uint32_t /*serial*/) {
                     beneathPointer_ = surface;
                     point_ = point;
                     reportPointer("enter");
                 },
             .pointerMoved =
                 [this](Point point) {
                     point_ = point;
                     reportPointer("motion");
                 },
             .buttonChanged =
                 [this](std::uint32_t button, bool isPress, std::uint32_t time) {
                     reportPointer(isPress ? "press" : "release", button, time);
                 }}),
      input_([this](const auto &fields) { return carryOut(fields); }) {
    static constexpr wl_registry_listener listener{
        .global =
            [](void *data, wl_registry *registry, std::uint32_t name, const char *interface,
               std::uint32_t) {
                if (std::string_view(interface) == xdg_wm_base_interface.name) {
                    static_cast<ClientProgram *>(data)->shell_ = static_cast<xdg_wm_base *>(
                        wl_registry_bind(registry, name, &xdg_wm_base_interface, 1));
                }
            },
        .global_remove = [](void *, wl_registry *, std::uint32_t) {}};
    wl_registry_add_listener(registry_.get(), &listener, this);
    events_.connection().synchronise();
    answerPings(shell_);
}

ClientProgram::~ClientProgram() {
    windows_.clear();
    xdg_wm_base_destroy(shell_);
}

bool ClientProgram::carryOut(const std::vector<std::string> &fields) {
    const std::string &command = fields.at(0);
    const auto number = [&fields](std::size_t index) { return std::stoi(fields.at(index)); };
    if (command == "open") {
        open(fields);
    } else if (command == "retitle") {
        windows_.at(number(1)).setTitle(fields.at(2));
    } else if (command == "close") {
        windows_.erase(number(1));
    } else if (command == "point") {
        mouse_->moveTo({double(number(1)), double(number(2))});
    } else if (command == "button") {
        mouse_->change(static_cast<std::uint32_t>(number(1)), number(2) != 0);
    } else if (!control_->carryOut(fields)) {
        return false;
    }
    return events_.connection().synchronise();
}

void ClientProgram::open(const std::vector<std::string> &fields) {
    const int window = std::stoi(fields.at(1));
    windows_.try_emplace(window, events_.connection(), shell_,
                         ClientWindow::Settings{.width = std::stoi(fields.at(2)),
                                                .height = std::stoi(fields.at(3)),
                                                .application = fields.at(4),
                                                .title = fields.at(5)},
                         [window] { report("shown\t" + std::to_string(window)); });
}

void ClientProgram::reportPointer(const std::string &what, std::uint32_t button,
                                  std::uint32_t time) const {
    report(what + "\t" + std::to_string(windowBeneathPointer()) + "\t" + std::to_string(button) +
           "\t" + std::to_string(point_.x) + "\t" + std::to_string(point_.y) + "\t" +
           std::to_string(time));
}

int ClientProgram::windowBeneathPointer() const {
    const auto window = std::ranges::find_if(
        windows_, [this](const auto &each) { return each.second.surface() == beneathPointer_; });
    return window != windows_.end() ? window->first : 0;
}

} // namespace corvane::desktop
