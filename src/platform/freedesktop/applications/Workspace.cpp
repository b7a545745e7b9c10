#include "platform/freedesktop/applications/Workspace.h"

#include <QDesktopServices>
#include <QUrl>

namespace corvane::freedesktop {

void Workspace::openUrl(const std::string &url) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

} // namespace corvane::freedesktop
