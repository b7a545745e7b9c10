#include "platform/linux/Compositor.h"

#include "platform/wayland/click/ClickDevice.h"
#include "platform/wayland/kwin/EisDevice.h"
#include "platform/wayland/kwin/Permission.h"

namespace corvane::linux {

namespace {

bool showsOverlays(const wayland::Connection &connection) {
    return connection.compositor() != nullptr && connection.sharedMemory() != nullptr &&
           connection.layerShell() != nullptr;
}

} // namespace

std::unique_ptr<wayland::Connection> connectToCompositor() {
    auto connection = wayland::Connection::open();
    if (!connection || !showsOverlays(*connection)) {
        return nullptr;
    }
    return wayland::ClickDevice::isOffered(*connection) || wayland::kwin::EisDevice::open()
               ? std::move(connection)
               : wayland::kwin::openWithPermission();
}

} // namespace corvane::linux
