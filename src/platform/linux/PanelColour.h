#pragma once

#include <QColor>

namespace corvane::x11 {

class XcbConnection;

/// The colour in which symbols stand on the desktop's panel: what the panel of that X server says,
/// else what its desktop is known for, else one that shows on light and dark. Main thread.
QColor panelColour(const XcbConnection &connection);

} // namespace corvane::x11
