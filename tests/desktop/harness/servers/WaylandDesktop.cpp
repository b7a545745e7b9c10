#include "WaylandDesktop.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <QColor>
#include <QImage>

#include <csignal>
#include <optional>
#include <stdexcept>

namespace corvane::desktop {

namespace {

/// Where X servers have their sockets. The system makes the folder when it starts; in a container
/// nobody may have. KWin 6 takes only one in which nobody can remove another's socket.
void makeSocketFolder() {
    const std::filesystem::path folder = "/tmp/.X11-unix";
    std::error_code isThere;
    if (std::filesystem::create_directory(folder, isThere)) {
        using std::filesystem::perms;
        std::filesystem::permissions(folder, perms::all | perms::sticky_bit);
    }
}

} // namespace

void WaylandDesktop::startCompositor(const std::vector<std::string> &arguments,
                                     const Environment &environment,
                                     const std::vector<std::string> &variables) {
    makeSocketFolder();
    compositor_ = std::make_unique<ChildProcess>(ChildProcess::Launch{
        .arguments = arguments, .environment = environment, .outputFolder = output()});
    std::vector<std::string> values;
    require("The compositor", *compositor_, [&] {
        const auto lines = wholeLines(readFile(sessionVariables()));
        values = lines.empty() ? std::vector<std::string>() : split(lines.front(), ' ');
        return values.size() == variables.size();
    });
    for (std::size_t index = 0; index < variables.size(); ++index) {
        set(variables[index], values[index]);
    }
}

void WaylandDesktop::takeStatusIcons() {
    connection_ = std::make_unique<DisplayConnection>(environment().at("DISPLAY"));
    connection_->takeSelection("_NET_SYSTEM_TRAY_S0");
}

void WaylandDesktop::place(const std::string &title, Position position) const {
    const bool isThere = waitUntil([&] {
        if (positionOf(title) == position) {
            return true;
        }
        // Again, because a compositor may still be about to place a new window itself.
        requestPlace(title, position);
        return false;
    });
    if (!isThere) {
        throw std::runtime_error("The window did not move");
    }
}

Pixel WaylandDesktop::colourAt(Position position) const {
    const auto file = folder() / "screen.png";
    saveScreenshot(file);
    const QColor colour(
        QImage(QString::fromStdString(file.string())).pixel(position.x, position.y));
    return {colour.red(), colour.green(), colour.blue()};
}

std::string WaylandDesktop::sightAt(Position position) const {
    const Pixel colour = colourAt(position);
    return std::to_string(colour.red) + " " + std::to_string(colour.green) + " " +
           std::to_string(colour.blue);
}

void WaylandDesktop::stopXWayland() const {
    // Nothing else has this home. The compositor's own children may have started and left it.
    for (const auto &entry : std::filesystem::directory_iterator("/proc")) {
        if (readFile(entry.path() / "comm") == "Xwayland\n" &&
            readFile(entry.path() / "environ").find("HOME=" + home().string()) !=
                std::string::npos) {
            kill(std::stoi(entry.path().filename()), SIGKILL);
            return;
        }
    }
    throw std::runtime_error("The compositor has no XWayland");
}

void WaylandDesktop::stopCompositor() {
    compositor_->signal(SIGKILL);
    compositor_->waitForEnd();
}

} // namespace corvane::desktop
