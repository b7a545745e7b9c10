#include "ClientProgram.h"
#include "GnomeShell.h"
#include "WaitUntil.h"
#include "platform/wayland/kwin/Bus.h"

#include <QCoreApplication>

#include <memory>
#include <utility>

namespace {

/// KWin may be about to learn which programs may use its input.
std::unique_ptr<corvane::wayland::Connection> openWithInput() {
    std::unique_ptr<corvane::wayland::Connection> connection;
    const bool isReady = corvane::desktop::waitUntil([&] {
        connection = corvane::wayland::Connection::open();
        return connection &&
               (connection->virtualPointers() != nullptr ||
                (connection->fakeInput() != nullptr && corvane::wayland::kwin::isRunning()) ||
                corvane::desktop::GnomeShell::isRunning());
    });
    return isReady ? std::move(connection) : nullptr;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    auto connection = openWithInput();
    if (!connection) {
        return 1;
    }
    const corvane::desktop::ClientProgram program(std::move(connection));
    return QCoreApplication::exec();
}
