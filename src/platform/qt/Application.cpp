#include "platform/qt/Application.h"

#include "platform/linux/environment/UserDirectories.h"

#include <QApplication>
#include <QWidget>

namespace corvane::qt {

namespace {

bool isOrdinaryWindow(const QWidget &widget) {
    const Qt::WindowType type = widget.windowType();
    return widget.isVisible() && (type == Qt::Window || type == Qt::Dialog);
}

} // namespace

/// Not quit(): a window could refuse that.
void Application::terminate() { QCoreApplication::exit(0); }

void Application::activateIgnoringOtherApps() {
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (isOrdinaryWindow(*widget)) {
            ownWindows_.bringToFront(*widget);
        }
    }
}

std::optional<std::string> Application::shortVersion() const { return CORVANE_VERSION; }

std::optional<std::string> Application::buildVersion() const { return CORVANE_BUILD_NUMBER; }

/// A resource of the program, so that it cannot be missing.
std::optional<std::filesystem::path> Application::iconFile() const { return ":/AppIcon.svg"; }

std::filesystem::path Application::homeDirectory() const { return linux::homeDirectory(); }

} // namespace corvane::qt
