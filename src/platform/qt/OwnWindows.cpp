#include "platform/qt/OwnWindows.h"

#include <QWidget>

namespace corvane::qt {

void OwnWindows::bringToFront(QWidget &window) const {
    window.raise();
    window.activateWindow();
    activate(window.winId());
}

} // namespace corvane::qt
