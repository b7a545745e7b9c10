#include "platform/freedesktop/applications/Workspace.h"

#include <QDesktopServices>
#include <QUrl>

#include <string_view>
#include <utility>

namespace corvane::freedesktop {

namespace {

/// How the program calls the page on which the user lets it click.
constexpr std::string_view accessibilitySettings =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

} // namespace

Workspace::Workspace(std::function<void()> showAccessibilityGuide)
    : showAccessibilityGuide_(std::move(showAccessibilityGuide)) {}

void Workspace::openUrl(const std::string &url) {
    if (url == accessibilitySettings) {
        showAccessibilityGuide_();
    } else {
        QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
    }
}

} // namespace corvane::freedesktop
