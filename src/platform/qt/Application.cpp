#include "platform/qt/Application.h"

#include "platform/linux/environment/UserDirectories.h"
#include "platform/x11/windows/WindowActivation.h"

#include <QApplication>
#include <QWidget>

namespace corvane::x11 {

namespace {

bool isOrdinaryWindow(const QWidget &widget) {
    const Qt::WindowType type = widget.windowType();
    return widget.isVisible() && (type == Qt::Window || type == Qt::Dialog);
}

} // namespace

/// Not quit(), which a window could refuse.
void LinuxApplication::terminate() { QCoreApplication::exit(0); }

void LinuxApplication::activateIgnoringOtherApps() {
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (isOrdinaryWindow(*widget)) {
            activateIgnoringOthers(*widget);
        }
    }
}

std::optional<std::string> LinuxApplication::shortVersion() const { return CORVANE_VERSION; }

std::optional<std::string> LinuxApplication::buildVersion() const { return CORVANE_BUILD_NUMBER; }

/// Among the program's own resources, so it cannot be missing.
std::optional<std::filesystem::path> LinuxApplication::iconFile() const { return ":/AppIcon.svg"; }

std::filesystem::path LinuxApplication::homeDirectory() const { return x11::homeDirectory(); }

} // namespace corvane::x11
