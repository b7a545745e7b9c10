#pragma once

#include <QColor>

namespace corvane::x11 {
class XcbConnection;
}

namespace corvane::platform {

/// The colour in which symbols stand on the desktop's panel: what the panel of that X server says,
/// else what its desktop is known for, else one that shows on light and dark. Main thread.
QColor panelColour(const x11::XcbConnection &connection);

} // namespace corvane::platform
