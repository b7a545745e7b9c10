#pragma once

#include "platform/x11/connection/XcbConnection.h"

#include <QImage>
#include <QRect>

namespace corvane::x11 {

/// What the screen shows in an area of the root window; black where it cannot be read.
QImage screenGrab(const XcbConnection &connection, const QRect &area);

} // namespace corvane::x11
