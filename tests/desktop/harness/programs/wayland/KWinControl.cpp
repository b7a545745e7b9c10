#include "KWinControl.h"

#include "CommandInput.h"
#include "platform/posix/FileDescriptor.h"
#include "platform/wayland/kwin/Script.h"
#include "platform/wayland/kwin/Windows.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusUnixFileDescriptor>
#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>

#include <fcntl.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

void place(const std::string &title, const std::string &x, const std::string &y) {
    const wayland::kwin::Script script(
        u"corvane-test-place"_s,
        uR"(for (const w of workspace.windowList ? workspace.windowList() : workspace.clientList())
    if (w.caption === "%1")
        w.frameGeometry = {x: %2, y: %3, width: w.frameGeometry.width, height: w.frameGeometry.height};
)"_s.arg(QString::fromStdString(title), QString::fromStdString(x), QString::fromStdString(y)),
        [](const QVariantList &) {});
}

bool reportPlace(const std::string &title) {
    // A new list each time: its script has seen what was changed before.
    const auto windows = wayland::kwin::Windows(u"corvane-test-windows"_s).windows();
    if (!windows) {
        return false;
    }
    const auto window = std::ranges::find(*windows, title, &wayland::Window::title);
    if (window == windows->end()) {
        return false;
    }
    report(std::to_string(std::lround(window->frame.x)) + "\t" +
           std::to_string(std::lround(window->frame.y)));
    return true;
}

/// Layer surfaces and panels included.
void reportFront(const std::string &x, const std::string &y) {
    wayland::kwin::Script script(
        u"corvane-test-front"_s, uR"(const at = w => { const f = w.frameGeometry;
    return !w.hidden && f.x <= %1 && %1 < f.x + f.width && f.y <= %2 && %2 < f.y + f.height; };
const all = workspace.windowList ? workspace.windowList() : workspace.clientList();
const front = all.filter(at).sort((a, b) => b.stackingOrder - a.stackingOrder)[0];
report(front ? front.internalId + " " + front.frameGeometry : "nothing");
)"_s.arg(QString::fromStdString(x), QString::fromStdString(y)),
        [](const QVariantList &values) { report(values.value(0).toString().toStdString()); });
    script.deliver();
}

QByteArray contentsOf(const posix::FileDescriptor &pipe) {
    QByteArray contents;
    std::array<char, 65536> buffer{};
    for (ssize_t length = 0; (length = read(pipe.get(), buffer.data(), buffer.size())) > 0;) {
        contents.append(buffer.data(), length);
    }
    return contents;
}

bool savePicture(const QString &file) {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return false;
    }
    const posix::FileDescriptor readEnd(ends[0]);
    posix::FileDescriptor writeEnd(ends[1]);
    auto message =
        QDBusMessage::createMethodCall(u"org.kde.KWin"_s, u"/org/kde/KWin/ScreenShot2"_s,
                                       u"org.kde.KWin.ScreenShot2"_s, u"CaptureWorkspace"_s);
    message << QVariantMap() << QVariant::fromValue(QDBusUnixFileDescriptor(writeEnd.get()));
    const QDBusReply<QVariantMap> reply = QDBusConnection::sessionBus().call(message);
    message = QDBusMessage();
    writeEnd.close();
    if (!reply.isValid()) {
        return false;
    }
    const auto number = [&reply](const char *key) {
        return reply.value().value(QString::fromLatin1(key)).toInt();
    };
    const QByteArray pixels = contentsOf(readEnd);
    const QImage image(reinterpret_cast<const uchar *>(pixels.constData()), number("width"),
                       number("height"), number("stride"),
                       static_cast<QImage::Format>(number("format")));
    return pixels.size() >= image.sizeInBytes() && image.save(file);
}

} // namespace

bool KWinControl::carryOut(const std::vector<std::string> &fields) const {
    const std::string &command = fields.at(0);
    if (command == "key") {
        org_kde_kwin_fake_input_keyboard_key(connection_.fakeInput(),
                                             static_cast<std::uint32_t>(std::stoi(fields.at(1))),
                                             static_cast<std::uint32_t>(std::stoi(fields.at(2))));
        return true;
    }
    if (command == "place") {
        place(fields.at(1), fields.at(2), fields.at(3));
        return true;
    }
    if (command == "front") {
        reportFront(fields.at(1), fields.at(2));
        return true;
    }
    if (command == "where") {
        return reportPlace(fields.at(1));
    }
    return command == "picture" && savePicture(QString::fromStdString(fields.at(1)));
}

} // namespace corvane::desktop
