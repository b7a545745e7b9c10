#include "platform/wayland/kwin/EisDevice.h"

#include "platform/posix/FileDescriptor.h"
#include "platform/wayland/kwin/Bus.h"

#include <QDBusUnixFileDescriptor>

#include <fcntl.h>

namespace corvane::wayland::kwin {

using namespace Qt::StringLiterals;

namespace {

RemoteObject inputs() {
    return {u"org.kde.KWin"_s, u"/org/kde/KWin/EIS/RemoteDesktop"_s,
            u"org.kde.KWin.EIS.RemoteDesktop"_s};
}

/// Among the kinds of devices that KWin numbers.
constexpr int pointer = 2;

void disconnect(int cookie) { inputs().send(u"disconnect"_s, {cookie}); }

} // namespace

std::unique_ptr<EisDevice> EisDevice::open() {
    if (!eis::EmulatedMouse::isPossible() || !isRunning()) {
        return nullptr;
    }
    const QDBusMessage reply = inputs().call(u"connectToEIS"_s, {pointer});
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"hi") {
        return nullptr;
    }
    const int cookie = reply.arguments().at(1).toInt();
    const auto socket = reply.arguments().at(0).value<QDBusUnixFileDescriptor>();
    auto mouse = eis::EmulatedMouse::connect(
        posix::FileDescriptor(fcntl(socket.fileDescriptor(), F_DUPFD_CLOEXEC, 0)));
    if (!mouse) {
        disconnect(cookie);
        return nullptr;
    }
    return std::unique_ptr<EisDevice>(new EisDevice(cookie, std::move(mouse))); // NOLINT
}

EisDevice::~EisDevice() { disconnect(cookie_); }

} // namespace corvane::wayland::kwin
