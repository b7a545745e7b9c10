#include "platform/freedesktop/applications/Workspace.h"

#include <QDesktopServices>
#include <QUrl>

#include <string_view>
#include <utility>

namespace corvane::x11 {

namespace {

/// How the program calls the page on which the user lets it click.
constexpr std::string_view accessibilitySettings =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

} // namespace

LinuxWorkspace::LinuxWorkspace(std::function<void()> showAccessibilityGuide)
    : showAccessibilityGuide_(std::move(showAccessibilityGuide)) {}

void LinuxWorkspace::openUrl(const std::string &url) {
    if (url == accessibilitySettings) {
        showAccessibilityGuide_();
    } else {
        QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
    }
}

} // namespace corvane::x11
