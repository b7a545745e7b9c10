#include "platform/wayland/eis/EmulatedMouse.h"

#include "platform/wayland/eis/LibEi.h"

#include <chrono>
#include <linux/input-event-codes.h>
#include <utility>

#include <poll.h>

namespace corvane::wayland::eis {

bool EmulatedMouse::isPossible() { return LibEi::load() != nullptr; }

std::unique_ptr<EmulatedMouse> EmulatedMouse::connect(posix::FileDescriptor socket) {
    const LibEi *const library = LibEi::load();
    if (library == nullptr || !socket.isOpen()) {
        return nullptr;
    }
    std::unique_ptr<EmulatedMouse> mouse(new EmulatedMouse(*library)); // NOLINT
    const bool isReady = mouse->context_ != nullptr &&
                         library->setup_backend_fd(mouse->context_, socket.release()) == 0 &&
                         mouse->awaitReady();
    return isReady ? std::move(mouse) : nullptr;
}

EmulatedMouse::EmulatedMouse(const LibEi &library)
    : library_(library),
      context_(library.new_sender(nullptr)) {
    if (context_ != nullptr) {
        library_.configure_name(context_, "Corvane");
    }
}

EmulatedMouse::~EmulatedMouse() {
    forgetDevice();
    if (context_ != nullptr) {
        library_.unref(context_);
    }
}

bool EmulatedMouse::isReady() {
    handleEvents();
    return isStarted_;
}

void EmulatedMouse::setButton(bool isPressed) {
    handleEvents();
    if (isStarted_) {
        library_.device_button_button(device_, BTN_LEFT, isPressed);
        library_.device_frame(device_, library_.now(context_));
    }
}

bool EmulatedMouse::awaitReady() {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::seconds longest{1};
    const auto deadline = Clock::now() + longest;
    while (!isReady() && isConnected_) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        pollfd readable{.fd = library_.get_fd(context_), .events = POLLIN, .revents = 0};
        if (left <= 0 || poll(&readable, 1, static_cast<int>(left)) == 0) {
            break;
        }
    }
    return isStarted_;
}

void EmulatedMouse::handleEvents() {
    library_.dispatch(context_);
    while (ei_event *const event = library_.get_event(context_)) {
        handle(event);
        library_.event_unref(event);
    }
}

void EmulatedMouse::handle(ei_event *event) {
    constexpr void *endOfList = nullptr;
    ei_device *const device = library_.event_get_device(event);
    switch (library_.event_get_type(event)) {
    case LibEi::seatAdded:
        library_.seat_bind_capabilities(library_.event_get_seat(event), LibEi::movesPointer,
                                        LibEi::pressesButtons, endOfList);
        break;
    case LibEi::deviceAdded:
        if (device_ == nullptr && library_.device_has_capability(device, LibEi::pressesButtons)) {
            device_ = library_.device_ref(device);
        }
        break;
    case LibEi::deviceResumed:
        start(device);
        break;
    case LibEi::devicePaused:
        isStarted_ = isStarted_ && device != device_;
        break;
    case LibEi::deviceRemoved:
        if (device == device_) {
            forgetDevice();
        }
        break;
    case LibEi::disconnected:
        isConnected_ = false;
        isStarted_ = false;
        break;
    default:
        break;
    }
}

void EmulatedMouse::start(ei_device *device) {
    if (device == device_) {
        library_.device_start_emulating(device, ++starts_);
        isStarted_ = true;
    }
}

void EmulatedMouse::forgetDevice() {
    if (device_ != nullptr) {
        library_.device_unref(device_);
    }
    device_ = nullptr;
    isStarted_ = false;
}

} // namespace corvane::wayland::eis
