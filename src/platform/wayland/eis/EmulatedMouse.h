#pragma once

#include "platform/posix/FileDescriptor.h"

#include <cstdint>
#include <memory>

struct ei;
struct ei_device;
struct ei_event;

namespace corvane::wayland::eis {

struct LibEi;

/// A mouse of this program's in the compositor, over a socket that the compositor has handed out
/// for it (EIS, the compositor's side of libei). Used by one thread at a time.
class EmulatedMouse {
  public:
    /// Whether the library is there that speaks the protocol.
    static bool isPossible();

    /// Waits for the compositor, for a second at most; null where it gives no mouse.
    static std::unique_ptr<EmulatedMouse> connect(posix::FileDescriptor socket);

    ~EmulatedMouse();

    EmulatedMouse(const EmulatedMouse &) = delete;
    EmulatedMouse &operator=(const EmulatedMouse &) = delete;

    /// Whether the compositor carries out what the mouse does now. Waits for nothing.
    bool isReady();

    /// False when the compositor has taken the mouse away for good.
    bool isConnected() const { return isConnected_; }

    /// Presses or releases the left button where the pointer is. Sent at once.
    void setButton(bool isPressed);

  private:
    explicit EmulatedMouse(const LibEi &library);

    bool awaitReady();
    void handleEvents();
    void handle(ei_event *event);
    void start(ei_device *device);
    void forgetDevice();

    const LibEi &library_;
    ei *const context_;
    /// Null until the compositor has announced one that has buttons.
    ei_device *device_ = nullptr;
    std::uint32_t starts_ = 0;
    bool isStarted_ = false;
    bool isConnected_ = true;
};

} // namespace corvane::wayland::eis
